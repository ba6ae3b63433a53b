"""Shows surfaces, pixels and positions in GDB: say `source debugging/tngraphics_gdb.py`, or let ~/.gdbinit say it.

A surface shows its size, its content rectangle where that is not all of it, its locks and a picture of its content. A
character of the picture is one pixel, or a cell of some in a surface too large for it, of which up to 4 x 4 are looked
at. Blank is transparent; from . to @ colours get lighter, and values of mattes and masks larger. Pixels in storage of
the host's own are seen while the surface is locked.

    set tngraphics-columns 100      the picture's largest width, 64 at first; 0 for no pictures

The program wants debug information, the library does not. Clang leaves out what it thinks others have: give it
-fstandalone-debug.
"""

import gdb
import gdb.printing

SHADES = ".:-=+*#%@"
SAMPLES = 4  # in each direction of a cell
LONGEST_ROW = 1 << 24  # more bytes than any row has: the surface has not been made yet


class Columns(gdb.Parameter):
    """The largest width of a surface's picture in characters; 0 for no pictures."""

    set_doc = "Set the largest width of pictures of surfaces in characters; 0 for none."
    show_doc = "Show the largest width of pictures of surfaces in characters; 0 for none."

    def __init__(self):
        super().__init__("tngraphics-columns", gdb.COMMAND_DATA, gdb.PARAM_ZUINTEGER)
        self.value = 64

    def get_set_string(self):
        return ""

    def get_show_string(self, value):
        return f"Pictures of surfaces are at most {value} characters wide."


COLUMNS = Columns()


# Where the pixels are


def pointer_type():
    """Of the program, which may have come after this script."""
    return gdb.lookup_type("void").pointer()


def pointer_in(owner):
    """What a smart pointer points to: it holds the one pointer, somewhere, and nothing else of its size."""
    while owner.type.strip_typedefs().code != gdb.TYPE_CODE_PTR:
        fields = owner.type.strip_typedefs().fields()
        owner = owner[next(field for field in fields if field.type.sizeof == pointer_type().sizeof)]
    return int(owner)


def word_at(address):
    return int(gdb.Value(address).cast(pointer_type().pointer()).dereference())


def is_own_storage(storage):
    symbol = gdb.execute(f"info symbol {word_at(storage)}", to_string=True)
    return symbol.startswith("vtable for WinBitMapHelper ")


def block_of(storage):
    """The pixels in storage of the library's own kind. A host need not have its debug information: see docs/Abi.md."""
    pixels_offset = 24
    return word_at(storage + pixels_offset) if storage and is_own_storage(storage) else 0


class Grid:
    """Rows of bytes in the program's memory."""

    def __init__(self, start, row_bytes, width, height):
        self.start = start
        self.row_bytes = row_bytes
        self.width = width
        self.height = height

    def row(self, y, length):
        return bytes(gdb.selected_inferior().read_memory(self.start + y * self.row_bytes, length))


# How pixels of each kind look


def image_pixel(row, x):
    """Alpha and luma."""
    blue, green, red, alpha = row[4 * x : 4 * x + 4]
    return alpha, (19595 * red + 38470 * green + 7471 * blue) >> 16


def mean_luma(pixels):
    weight = sum(alpha for alpha, luma in pixels)
    return sum(alpha * luma for alpha, luma in pixels) / weight if weight else None


def matte_pixel(row, x):
    return row[x]


def mask_pixel(row, x):
    return 255 if row[x // 8] & (0x80 >> x % 8) else 0


def mean_value(values):
    return sum(values) / len(values) if any(values) else None


class Kind:
    def __init__(self, depth, pixel, mean):
        self.depth = depth
        self.pixel = pixel
        self.mean = mean  # from 0 to 255, or None for nothing to see

    def row_length(self, width):
        return (width * self.depth + 7) // 8

    def shade(self, rows, columns):
        mean = self.mean([self.pixel(row, x) for row in rows for x in columns])
        return " " if mean is None else SHADES[int(mean * len(SHADES) / 256)]


IMAGE = Kind(32, image_pixel, mean_luma)
MATTE = Kind(8, matte_pixel, mean_value)
MASK = Kind(1, mask_pixel, mean_value)


# Pictures


def samples(start, end):
    """Up to SAMPLES positions from start to end, evenly."""
    count = min(SAMPLES, end - start)
    return [start + (2 * i + 1) * (end - start) // (2 * count) for i in range(count)]


def cells(extent, cell):
    return [samples(start, min(start + cell, extent)) for start in range(0, extent, cell)]


def picture(grid, kind, columns):
    """Lines of characters, which are twice as high as wide, and so are the cells."""
    if grid.width <= columns and grid.height <= columns // 2:
        cell = (1, 1)
    else:
        side = max(-(-grid.width // columns), -(-grid.height // columns))
        cell = (side, 2 * side)
    lines = []
    for ys in cells(grid.height, cell[1]):
        rows = [grid.row(y, kind.row_length(grid.width)) for y in ys]
        line = "".join(kind.shade(rows, xs) for xs in cells(grid.width, cell[0]))
        lines.append("|" + line + "|")
    return lines


def in_one_line():
    """In the arguments of a backtrace there is no room for pictures."""
    return hasattr(gdb, "print_options") and gdb.print_options()["summary"]


def picture_below(grid, kind):
    columns = int(COLUMNS.value)
    if columns == 0 or grid.width < 1 or grid.height < 1 or in_one_line():
        return ""
    if kind.row_length(grid.width) > LONGEST_ROW:
        return ", pixels not readable"
    if grid.start == 0:
        return ", pixels out of sight"
    return "\n" + "\n".join(picture(grid, kind, columns))


def with_picture(text, make_grid, kind):
    """The text with a picture below it, whatever state the program's memory is in."""
    try:
        return text + picture_below(make_grid(), kind)
    except (gdb.MemoryError, StopIteration):
        return text + ", pixels not readable"


# Printers


def point(value):
    return int(value["x"]), int(value["y"])


def rectangle(value):
    return tuple(int(value[name]) for name in ("left", "top", "width", "height"))


def rectangle_text(left, top, width, height):
    return f"{width} x {height} at ({left}, {top})"


def locks_text(count):
    return "1 lock" if count == 1 else f"{count} locks" if count else "not locked"


class SurfacePrinter:
    kind = None

    def __init__(self, value):
        self.value = value

    def grid(self):
        left, top, width, height = rectangle(self.value["content_"])
        row_bytes = int(self.value["rowBytes_"])
        start = int(self.value["pixelBase_"])
        if start == 0:
            block = block_of(pointer_in(self.value["storage_"]))
            start = block and block + top * row_bytes + left * self.kind.depth // 8
        return Grid(start, row_bytes, width, height)

    def to_string(self):
        width, height = point(self.value["size_"])
        content = rectangle(self.value["content_"])
        text = f"{width} x {height}"
        if content != (0, 0, width, height):
            text += ", content " + rectangle_text(*content)
        text += ", " + locks_text(int(self.value["clients_"]))
        return with_picture(text, self.grid, self.kind)


class ImagePrinter(SurfacePrinter):
    kind = IMAGE


class MattePrinter(SurfacePrinter):
    kind = MATTE


class MaskPrinter:
    def __init__(self, value):
        self.value = value

    def grid(self):
        start = int(self.value["pixelAddress_"]) or block_of(pointer_in(self.value["storage_"]))
        return Grid(start, int(self.value["rowBytes_"]), *point(self.value["size_"]))

    def to_string(self):
        width, height = point(self.value["size_"])
        text = f"{width} x {height}, " + locks_text(int(self.value["clients_"]))
        return with_picture(text, self.grid, MASK)


def printer(text):
    """A printer of one line, which a function makes from the value."""

    class Printer:
        def __init__(self, value):
            self.value = value

        def to_string(self):
            return text(self.value)

    return Printer


def channels_text(alpha, red, green, blue):
    return f"alpha {alpha}, red {red}, green {green}, blue {blue}"


def image_pixel_text(value):
    word = int(value["value"])
    return f"0x{word:08X} ({channels_text(word >> 24, word >> 16 & 255, word >> 8 & 255, word & 255)})"


def color_text(value):
    return channels_text(*(int(value[name]) for name in ("alpha", "red", "green", "blue")))


def mask_pixel_text(value):
    return "set" if int(value["value"]) else "not set"


def fixed_text(value):
    raw = int(value["raw"])
    return f"{raw / 65536:.10g} (raw {raw})"


PRINTERS = {
    "TnImage": ImagePrinter,
    "TnMatte": MattePrinter,
    "TnMask": MaskPrinter,
    "TnImagePixel": printer(image_pixel_text),
    "TnMattePixel": printer(lambda value: str(int(value["value"]))),
    "TnMaskPixel": printer(mask_pixel_text),
    "TnColor": printer(color_text),
    "TnPoint": printer(lambda value: "({}, {})".format(*point(value))),
    "TnRect": printer(lambda value: rectangle_text(*rectangle(value))),
    "TnFixed": printer(fixed_text),
}


def register():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("TnGraphics")
    for name, made in PRINTERS.items():
        printers.add_printer(name, f"^{name}$", made)
    gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)


register()
