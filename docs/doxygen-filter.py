#!/usr/bin/env python3
"""Shows a public header to Doxygen as its comments are meant, line for line.

A plain comment right above a declaration documents it; one behind a declaration, on its line,
documents that. A comment covers the declarations below it too, up to a blank line or the next
comment, as far as they are overloads of the first or differ from it by names and number types
alone. What else has no comment stays undocumented, and Doxygen says so. How objects are copied,
assigned and destroyed is told by the comment of their class.
"""
import re
import sys
from itertools import takewhile

COMMENT = re.compile(r"\s*//")
NO_DECLARATION = re.compile(r"\s*(//|#(?!define \S+ +\S)|}|public:|private:|protected:|friend |extern|$)")
NUMBER = r"(?:(?:std::)?u?int\d+_t|bool|float|double|(?:(?:un)?signed )?(?:int|short|char)) "
# The end of a C function's name where its family has a type.
TYPE = r"(?<=Add)(Boolean|[US]int\d+|String|DateTime|Reference|CIMValue|Array)?(Property)?$"


def with_line_comments(text):
    """The lines, with each comment in its // form."""
    block = re.compile(r"/\*(.*?)\s*\*/", re.DOTALL)
    return block.sub(lambda c: re.sub(r"(?m)^( \*)?", "//", c.group(1)), text).splitlines()


def escaped(text):
    """A line without commands or markup: prose, or code where three blanks stand in front."""
    if text.startswith("   "):
        return "    " + text
    return re.sub(r"([\\@#%])", r"\\\1", text).replace("<", "&lt;").replace(">", "&gt;")


def end_of(lines, start):
    """The last line of the declaration that begins there; the first where its body has members."""
    if lines[start].startswith("#"):
        return next(j for j in range(start, len(lines)) if not lines[j].endswith("\\"))
    depth = 0
    for end in range(start, len(lines)):
        code = re.sub(r"//.*", "", lines[end]).rstrip()
        if re.match(r"\s*(typedef )?(class|struct|enum)\b.*{$", code):
            return end
        depth += len(re.findall(r"[({]", code)) - len(re.findall(r"[)}]", code))
        if depth <= 0 and re.search(r"[;,}]$|= -?\d+$", code):
            return end
    return start


def declarations_below(lines, start):
    """The first and the last line of each, up to a blank line or a comment."""
    while start < len(lines) and not NO_DECLARATION.match(lines[start]):
        yield start, end_of(lines, start)
        start = end_of(lines, start) + 1


def name_of(declaration):
    match = re.search(
        r"(operator)\b|\(\*(\w+)\)|(~?\w+)[^\w(]*\((?!\*)|(\w+)(?= =|;|\[| :|,|$)", declaration
    )
    return next(filter(None, match.groups())) if match else declaration


def can_share(one, other):
    """Whether one comment can cover both declarations."""
    names = [name_of(one), name_of(other)]
    shapes = [re.sub(NUMBER, "# ", text.replace(name, "@", 1)) for text, name in zip((one, other), names)]
    if names[0].startswith("vsk"):
        names = [re.sub(TYPE, "", name) for name in names]
    return names[0] == names[1] or shapes[0] == shapes[1]


def goes_without_saying(declaration, owner):
    """A copy, a move, an assignment, a destructor, or what is declared only to be taken away."""
    copies = r"= delete;|~\w+\(|%s& operator=\(|\b%s\((const )?%s&&?( \w+)?\)"
    return re.search(copies % (owner, owner, owner), declaration)


def show(lines):
    shown = list(lines)
    owner, covered, i = "", -1, 0

    def text(start, end):
        return "\n".join(re.sub(r"\s*//.*", "", line) for line in lines[start : end + 1])

    while i < len(lines):
        if COMMENT.match(lines[i]):
            below = next(j for j in range(i, len(lines)) if not COMMENT.match(lines[j]))
            run = list(declarations_below(lines, below))
            run = list(takewhile(lambda d: can_share(text(*run[0]), text(*d)), run))
            while len(run) > 1 and goes_without_saying(text(*run[-1]), owner):
                run.pop()
            for j in range(i, below if run or i == 0 else i):
                shown[j] = "///" + escaped(COMMENT.sub("", lines[j]))
            if i == 0:
                shown[below - 1] += " @file"
            covered = run[-1][1] if run else -1
            if len(run) > 1:
                shown[below] = "/** @{ */ " + lines[below]
                shown[covered] += "/** @} */"
            i = below
        elif NO_DECLARATION.match(lines[i]):
            i += 1
        else:
            opened = re.match(r"\s*(?:class|struct) (?:VSK_EXPORT )?(\w+)[^;]*{$", lines[i])
            owner = opened.group(1) if opened else owner
            end = end_of(lines, i)
            shown[end] = re.sub(
                r"(\S)\s+//(.*?)(/\*\* @} \*/)?$",
                lambda c: c.group(1) + (c.group(3) or "") + "  ///<" + escaped(c.group(2)),
                shown[end],
            )
            if end > covered and "///<" not in shown[end] and goes_without_saying(text(i, end), owner):
                shown[i] = "/** @cond */ " + shown[i]
                shown[end] += " /** @endcond */"
            i = end + 1
    return shown


with open(sys.argv[1], encoding="utf-8") as header:
    print("\n".join(show(with_line_comments(header.read()))))
