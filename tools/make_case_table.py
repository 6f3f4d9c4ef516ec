#!/usr/bin/env python3
"""Writes package/common/case_table.inc: the simple upper-case mappings of Unicode as ranges.

Letters whose upper case is an ASCII letter although they are not ASCII themselves (dotless i,
long s) are left out: file systems that ignore case keep them apart from "i" and "s", and so
text that is pure ASCII can only equal pure ASCII text.
"""
import sys
import unicodedata


def simple_upper(code):
    text = chr(code)
    upper = text.upper()
    return ord(upper) if len(upper) == 1 else code


def ranges():
    current = None
    for code in range(0x80, 0x110000):
        if 0xD800 <= code <= 0xDFFF:
            continue
        upper = simple_upper(code)
        if upper == code or upper < 0x80:
            continue
        delta = upper - code
        if current and current[3] == delta:
            step = code - current[1]
            if current[0] == current[1] and step in (1, 2):
                current[1], current[2] = code, step
                continue
            if current[0] != current[1] and step == current[2]:
                current[1] = code
                continue
        if current:
            yield current
        current = [code, code, 1, delta]
    if current:
        yield current


def main():
    print(f"// Made by tools/make_case_table.py from Unicode {unicodedata.unidata_version}; "
          "do not edit by hand.")
    for first, last, step, delta in ranges():
        print(f"{{0x{first:04X}, 0x{last:04X}, {step}, {delta}}},")


if __name__ == "__main__":
    sys.exit(main())
