"""Writes assembler text that imports what a built module imports, and uses none of it.

    same_imports.py OBJDUMP MODULE OUTPUT
"""

import re
import subprocess
import sys


def imported_names(listing):
    """The names in the import tables of objdump's listing, in order."""
    names = []
    inside = False
    for line in listing.splitlines():
        if line.startswith("The Import Tables"):
            inside = True
        elif line.startswith("The Export Tables") or line.startswith("The Function Table"):
            inside = False
        match = re.fullmatch(r"\t[0-9a-f]+\s+\d+\s+(\S+)", line)
        if inside and match:
            names.append(match.group(1))
    return names


def main():
    objdump, module, output = sys.argv[1:]
    listing = subprocess.run([objdump, "-p", module], check=True, capture_output=True, text=True)
    names = imported_names(listing.stdout)
    if not names:
        sys.exit(f"{module} imports nothing")
    with open(output, "w", encoding="utf-8") as file:
        file.write("        .section .rdata\n")
        for name in names:
            file.write(f"        .rva __imp_{name}\n")


main()
