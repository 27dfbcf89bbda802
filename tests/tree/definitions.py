"""What C++ sources define at the top level: two with the same name can't be one translation unit."""
import re

# "constexpr int32_t Rows = 8;", "struct Row {", "void draw(Row row) {".
DEFINITION = re.compile(r"(?:struct|class|enum|enum class)(?: alignas\(\w+\))? (?P<type>\w+) |using (?P<alias>\w+) = |"
                        r"(?!return |using |namespace )\w[\w:<>&*, ]*[ &*]"
                        r"(?:(?P<constant>[\w]+)(?:\[\w*\])*(?:;| =|\{)|(?P<function>\w+\(.*[{,]$))")

# Types at any depth. An alias for a type of the same name adds none.
TYPE = re.compile(r"\s*(?:template <.*> )?(?:"
                  r"(?:struct|class|enum|enum class|union)(?: alignas\(\w+\))? (?:\w+::)*(?P<type>\w+)(?: final)?(?: : [^;]*)?(?: \{|$)|"
                  r"using (?P<alias>\w+) = (?!.*\b(?P=alias);))")


def definitions(path):
    """Yields line number, name and text of what a source defines. A function's name includes its
    parameters, since it may have overloads elsewhere."""
    with open(path, encoding="latin-1") as file:
        for number, line in enumerate(file, 1):
            if found := DEFINITION.match(line):
                yield number, found["type"] or found["alias"] or found["constant"] or found["function"], line


def types(path):
    """Yields line number and name of each type that a source defines, nested ones included."""
    with open(path, encoding="latin-1") as file:
        for number, line in enumerate(file, 1):
            if found := TYPE.match(line):
                yield number, found["type"] or found["alias"]
