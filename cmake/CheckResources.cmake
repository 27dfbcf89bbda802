# Fails if a Windows program lacks its one manifest or has another version than the project's, or
# if the one with the window lacks its icon:
#   cmake -DWINDRES=windres -DVERSION=1.2.3 "-DPROGRAMS=a.exe;b.exe" -P CheckResources.cmake
# Without dpiAware Windows blows a small picture of the window up; a second manifest, such as some
# compilers link by themselves, may be the one that counts.
cmake_minimum_required(VERSION 3.25)
string(REPLACE . "\\." version "${VERSION}")
set(troubles)
foreach(program ${PROGRAMS})
  execute_process(COMMAND ${WINDRES} --input-format=coff --output-format=rc ${program}
    OUTPUT_VARIABLE resources COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "\n[^\n]*RT_MANIFEST" manifests "${resources}")
  if(NOT manifests STREQUAL "\n1 24 /* RT_MANIFEST")
    list(LENGTH manifests number)
    list(APPEND troubles "${program}: ${number} manifests instead of one that is number 1")
  endif()
  foreach(words "dpiAware [^>]*>true</dpiAware>" "level=\"\"asInvoker\"\""
      "VALUE \"FileVersion\", \"${version}\"" "VALUE \"ProductVersion\", \"${version}\"")
    if(NOT resources MATCHES "${words}")
      list(APPEND troubles "${program}: nothing like ${words}")
    endif()
  endforeach()
  string(REPLACE . ", " numbers "${VERSION}.0")
  if(NOT resources MATCHES "FILEVERSION ${numbers}\n")
    list(APPEND troubles "${program}: no file version ${numbers}")
  endif()
  if(program MATCHES "wingtally\\.exe$" AND NOT resources MATCHES "RT_GROUP_ICON")
    list(APPEND troubles "${program}: no icon")
  endif()
endforeach()
if(troubles)
  list(JOIN troubles "\n  " lines)
  message(FATAL_ERROR "In the programs' resources:\n  ${lines}")
endif()
