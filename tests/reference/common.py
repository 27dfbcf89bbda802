"""What the reference computations share: the generator, 32-bit floats, the output file."""
import struct
import sys


def f32(value):
    """The nearest 32-bit float. One operation on two of them, rounded so, is the 32-bit operation."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


class Random:
    """MT19937 (Matsumoto, Nishimura 1998) with the draws that the program takes from it."""

    def __init__(self, seed):
        self.seed(seed)

    def seed(self, seed):
        self.state = [seed & 0xFFFFFFFF]
        for i in range(1, 624):
            last = self.state[-1]
            self.state.append((1812433253 * (last ^ (last >> 30)) + i) & 0xFFFFFFFF)
        self.index = 624

    def next(self):
        if self.index == 624:
            state = self.state
            for i in range(624):
                bits = (state[i] & 0x80000000) | (state[(i + 1) % 624] & 0x7FFFFFFF)
                state[i] = state[(i + 397) % 624] ^ (bits >> 1) ^ (0x9908B0DF if bits & 1 else 0)
            self.index = 0
        value = self.state[self.index]
        self.index += 1
        value ^= value >> 11
        value ^= (value << 7) & 0x9D2C5680
        value ^= (value << 15) & 0xEFC60000
        return value ^ (value >> 18)

    def integer(self, low, high):
        """low to high, both included; exchanged if they are the wrong way round."""
        low, high = min(low, high), max(low, high)
        return low + self.next() % (high - low + 1)

    def real(self, low, high):
        """low + (high - low) x u in 32-bit floats, u from 0 to 1."""
        unit = f32(f32(self.next()) * 2.0**-32)
        return f32(f32(unit * f32(high - low)) + low)


def write(text):
    """Writes the file that the first argument names: bytes, or text of ASCII."""
    with open(sys.argv[1], "wb") as file:
        file.write(text if isinstance(text, bytes) else text.encode("ascii"))
