"""Reads include/koraxdr.h: constants and exported functions in their order, with groups and comments."""
import re
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADER = ROOT / "include/koraxdr.h"

# A block comment, the declaration of one function, or the definition of one constant.
TOKEN = re.compile(r"/\*(?P<comment>.*?)\*/|KORAX_API (?P<declaration>[^;#]*KORAX_CALL[^;#]*);"
                   r"|#define (?P<constant>KORAXDR_VERSION\w*|KORAX_(?:E|RATE|TYPE)_\w+)"
                   r"(?P<value>(?:[^/\\\n]|\\\n)+)", re.DOTALL)
DECLARATION = re.compile(r"(?P<result>.+?) ?(?P<name>\w+)\((?P<parameters>.*)\)")


@dataclass(frozen=True)
class Constant:
    name: str
    value: int


@dataclass(frozen=True)
class Function:
    name: str
    result: str  # the C type, as "char*"
    parameters: tuple  # of (C type, name)


def plain(comment):
    lines = [re.sub(r"^ ?\* ?", "", line).rstrip() for line in comment.strip().split("\n")]
    return "\n".join(lines).strip()


def signature(declaration):
    return re.sub(r"\s+", " ", declaration.replace("KORAX_CALL ", ""))


def value(expression, known):
    """The number that an expression of numbers and of constants before it gives."""
    numbers = re.sub(r"KORAX\w+", lambda name: str(known[name[0]]), expression.replace("\\\n", " "))
    if not re.fullmatch(r"[\d\s()+*]+", numbers):
        raise ValueError(f"Not a number: {expression}")
    return eval(numbers)  # digits, brackets, + and * alone


def entries(header):
    """Yields ('intro' | 'group' | 'constants' | 'function', text, constants or signatures)."""
    comment, signatures, constants, known = None, [], [], {}
    for token in TOKEN.finditer(header):
        if token["declaration"]:
            signatures.append(signature(token["declaration"]))
            continue
        if token["constant"]:
            known[token["constant"]] = value(token["value"], known)
            constants.append(Constant(token["constant"], known[token["constant"]]))
            continue
        if signatures:
            yield "function", comment, signatures
            signatures = []
        elif constants:
            yield "constants", comment, constants
            constants = []
        elif comment is not None:
            yield "intro", comment, []
        comment = plain(token["comment"])
        group = re.fullmatch(r"---- (.*) ----", comment)
        if group:
            yield "group", group[1], []
            comment = None
    if signatures:  # the comment behind the last declaration closes the header
        yield "function", comment, signatures


def function(one):
    """The function that a signature of entries() declares."""
    parts = DECLARATION.fullmatch(one)
    parameters = [] if parts["parameters"] == "void" else parts["parameters"].split(", ")
    return Function(
        parts["name"],
        parts["result"],
        tuple(tuple(parameter.rsplit(" ", 1)) for parameter in parameters))
