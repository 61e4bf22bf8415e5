#!/usr/bin/env python3
"""Reads a public header for Doxygen. Prints it with each comment repeated for the declarations that follow without a
blank line, which it speaks of as well, and with a pointer to the base class at overrides that have no comment."""

import re
import sys

# Behind these a comment speaks of nothing any more.
BREAKS = ("#", "public", "protected", "private", "Q_SIGNALS", "Q_OBJECT", "}", ":")
ENDS = re.compile(r"[;}]\s*$|^\s*Q_PROPERTY.*\)$")
CLASS = re.compile(r"\s*(?:template\b.*> )?(?:class|struct) (?:[A-Z_]+_EXPORT )?(\w+).*")
SCOPE = re.compile(r"\s*(template\b.*>\s*)?(class|struct|enum|namespace)\b")


def code_of(line):
    return re.sub(r'"(?:\\.|[^"\\])*"|//.*', "", line)


def is_comment(line):
    return line.startswith("///") and not line.startswith("///<")


def opens_scope(code):
    return code.strip() == "{" or (SCOPE.match(code) and ("{" in code or ("(" not in code and not code.rstrip().endswith(";"))))


def is_silent(code):
    """What Qt and the language prescribe needs no words: copies, ends, and functions of the base class."""
    return bool(re.search(r"\boverride\b|= (default|delete)\b|\boperator=|~\w+\(|\bfriend\b", code))


def printed(lines):
    comment, isNew, depth, brackets, begins, name = [], False, 0, 0, True, ""
    for position, line in enumerate(lines):
        stripped, code = line.strip(), code_of(line)
        # Enumerators end without a mark.
        begins = begins or (depth == 0 and brackets == 0 and stripped.startswith("}"))
        if begins and is_comment(stripped):
            comment = comment + [line] if isNew else [line]
            isNew = True
            yield line
            continue
        if begins and stripped.startswith("//"):
            yield line
            continue
        if begins and (not stripped or stripped.startswith(BREAKS) or opens_scope(code)):
            comment, isNew = [], False
            name = CLASS.sub(r"\1", code) if CLASS.match(code) else name
            yield line
            continue
        if begins:
            if is_silent(whole(lines, position)) and not isNew:
                yield "    /// As the base class has it."
            elif re.match(r"(explicit )?" + (name or "-") + r"\(", stripped) and not isNew:
                yield "    /// See the class."
            elif not isNew:
                yield from comment
            isNew = re.match(r"template\b.*>$", stripped)
            if isNew:
                yield line
                continue
        depth += code.count("{") - code.count("}")
        brackets += code.count("(") - code.count(")")
        begins = depth == 0 and brackets == 0 and bool(ENDS.search(code))
        yield line


def whole(lines, position):
    """The declaration that begins there, over all its lines."""
    text = ""
    for line in lines[position:position + 8]:
        text += code_of(line) + " "
        if re.search(r"[;{}]\s*$", code_of(line)):
            break
    return text


sys.stdout.write("\n".join(printed(open(sys.argv[1], encoding="utf-8").read().split("\n"))))
