"""Checks debugging/tngraphics.natvis within GDB, stopped in Debuggee.cpp: it is well-formed, every expression means
something for its type, and what is displayed is right."""

import re
import sys
import xml.etree.ElementTree as xml

import gdb

NATVIS = "debugging/tngraphics.natvis"
NAMESPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"

# For each type: variables, how they are displayed, and values in their list of pixels, in rows.
EXPECTED = {
    "TnImage": [
        ("greys", "8 x 2, lock count 0", None),
        ("lockedImage", "3 x 2, lock count 1", [0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004]),
    ],
    "TnMatte": [("matte", "3 x 2, lock count 0", None), ("locked", "4 x 2, lock count 2", [0, 255, 0, 255, 255, 0, 255, 0])],
    "TnMask": [
        ("mask", "10 x 2, lock count 0", None),
        ("lockedMask", "10 x 2, lock count 1", [0, 0, 1, 0, 0, 0, 0, 0, 0, 1] + [0, 0, 0, 0, 0, 0, 0, 0, 0, 1]),
    ],
    "TnImagePixel": [("pixel", "alpha 128, red 255, green 64, blue 0", None)],
    "TnMattePixel": [("coverage", "200", None)],
    "TnMaskPixel": [("inside", "set", None), ("outside", "not set", None)],
    "TnColor": [("color", "alpha 255, red 16, green 22, blue 48", None)],
    "TnPoint": [("point", "(-3, 7)", None)],
    "TnRect": [("rect", "280 x 60 at (-1, 20)", None)],
    "TnFixed": [("fixed", "-0.5000152587890625 (raw -32769)", None)],
}

wrong = []


def expect(what, actual, expected):
    if actual != expected:
        wrong.append(f"{what}: {actual!r} instead of {expected!r}")


def is_type(name):
    try:
        gdb.lookup_type(name)
        return True
    except gdb.error:
        return False


def evaluate(expression, variable, index=0):
    """The natvis expression in the variable's scope; GDB complains of names that are neither members nor types."""
    plain = re.sub(r",\s*\w+$", "", expression).replace("$i", str(index))

    def scoped(match):
        name = match.group()
        return name if is_type(name) else f"({variable}).{name}"

    return gdb.parse_and_eval(re.sub(r"(?<![\w.>])[A-Za-z_]\w*", scoped, plain))


def holds(element, variable):
    condition = element.get("Condition")
    return condition is None or bool(evaluate(condition, variable))


def displayed(shape, variable):
    text = next(text.text for text in shape.findall(NAMESPACE + "DisplayString") if holds(text, variable))
    return re.sub(r"{([^}]*)}", lambda match: str(evaluate(match.group(1), variable)), text)


def number(value):
    return int(value["value"] if value.type.code == gdb.TYPE_CODE_STRUCT else value)


def listed(items, variable):
    size = int(evaluate(items.find(NAMESPACE + "Size").text, variable))
    node = items.find(NAMESPACE + "ValueNode").text
    return [number(evaluate(node, variable, index)) for index in range(size)]


def check_expanded(shape, variable, pixels):
    for item in shape.iter(NAMESPACE + "Item"):
        evaluate(item.text, variable)
    lists = [items for items in shape.iter(NAMESPACE + "IndexListItems") if holds(items, variable)]
    expect(f"pixels of {variable}", listed(lists[0], variable) if lists else None, pixels)


def check(shapes):
    expect("types", sorted(shapes), sorted(EXPECTED))
    for name, cases in EXPECTED.items():
        for variable, text, pixels in cases:
            expect(f"type of {variable}", str(gdb.parse_and_eval(variable).type.unqualified()), name)
            expect(variable, displayed(shapes[name], variable), text)
            check_expanded(shapes[name], variable, pixels)


try:
    root = xml.parse(NATVIS).getroot()
    check({shape.get("Name"): shape for shape in root.iter(NAMESPACE + "Type")})
except (gdb.error, xml.ParseError, KeyError, StopIteration) as error:
    wrong.append(f"{type(error).__name__}: {error}")

for complaint in wrong:
    print(f"{NATVIS}: {complaint}")
sys.stdout.flush()
gdb.execute("kill")
gdb.execute(f"quit {1 if wrong else 0}")
