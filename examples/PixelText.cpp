#include "PixelText.h"

#include <cstddef>

namespace {

constexpr int kGlyphWidth = 5;
constexpr int kAdvance = kGlyphWidth + 1;

/// Glyphs side by side, a column apart.
struct Strip {
    std::string_view characters;
    std::string_view rows[kTextHeight];
};

// clang-format off
constexpr Strip kStrips[] = {
    {"ABCDEFGHIJKLM", {
        " ###  ####   ###  ####  ##### #####  ###  #   #  ###    ### #   # #     #   #",
        "#   # #   # #   # #   # #     #     #   # #   #   #      #  #  #  #     ## ##",
        "#   # #   # #     #   # #     #     #     #   #   #      #  # #   #     # # #",
        "##### ####  #     #   # ####  ####  # ### #####   #      #  ##    #     # # #",
        "#   # #   # #     #   # #     #     #   # #   #   #      #  # #   #     #   #",
        "#   # #   # #   # #   # #     #     #   # #   #   #   #  #  #  #  #     #   #",
        "#   # ####   ###  ####  ##### #      #### #   #  ###   ##   #   # ##### #   #"}},
    {"NOPQRSTUVWXYZ", {
        "#   #  ###  ####   ###  ####   #### ##### #   # #   # #   # #   # #   # #####",
        "##  # #   # #   # #   # #   # #       #   #   # #   # #   # #   # #   #     #",
        "# # # #   # #   # #   # #   # #       #   #   # #   # #   #  # #   # #     # ",
        "# # # #   # ####  #   # ####   ###    #   #   # #   # # # #   #     #     #  ",
        "#  ## #   # #     # # # # #       #   #   #   # #   # # # #  # #    #    #   ",
        "#   # #   # #     #  #  #  #      #   #   #   #  # #  ## ## #   #   #   #    ",
        "#   #  ###  #      ## # #   # ####    #    ###    #   #   # #   #   #   #####"}},
    {"abcdefghijklm", {
        "      #               #         ##        #       #      #  #      ##        ",
        "      #               #        #          #                 #       #        ",
        " ###  # ##   ###   ## #  ###   #     #### # ##   ##     ##  #  #    #   ## # ",
        "    # ##  # #     #  ## #   # ###   #   # ##  #   #      #  # #     #   # # #",
        " #### #   # #     #   # #####  #    #   # #   #   #      #  ##      #   # # #",
        "#   # #   # #     #   # #      #     #### #   #   #      #  # #     #   #   #",
        " #### ####   ###   ####  ###   #        # #   #  ###     #  #  #   ###  #   #",
        "                                    #   #             #  #                   ",
        "                                     ###               ##                    "}},
    {"nopqrstuvwxyz", {
        "                                     #                                       ",
        "                                     #                                       ",
        "# ##   ###  ####   #### # ##   ###  ###   #   # #   # #   # #   # #   # #####",
        "##  # #   # #   # #   # ##  # #      #    #   # #   # #   #  # #  #   #    # ",
        "#   # #   # #   # #   # #      ###   #    #   # #   # # # #   #   #   #   #  ",
        "#   # #   # ####   #### #         #  #  # #  ##  # #  # # #  # #   ####  #   ",
        "#   #  ###  #         # #     ####    ##   ## #   #    # #  #   #     # #####",
        "            #         #                                           #   #      ",
        "            #         #                                            ###       "}},
    {"0123456789.,-()", {
        " ###    #    ###  #####    #  #####   ##  #####  ###   ###                      #    #   ",
        "#   #  ##   #   #    #    ##  #      #        # #   # #   #                    #      #  ",
        "#  ##   #       #   #    # #  ####  #        #  #   # #   #                    #      #  ",
        "# # #   #      #     #  #  #      # ####    #    ###   ####             ###    #      #  ",
        "##  #   #     #       # #####     # #   #   #   #   #     #                    #      #  ",
        "#   #   #    #    #   #    #  #   # #   #   #   #   #    #   ##    ##          #      #  ",
        " ###   ###  #####  ###     #   ###   ###    #    ###   ##    ##    ##           #    #   ",
        "                                                                    #                    ",
        "                                                                   #                     "}},
};
// clang-format on

template <class Draw> void ForEachDot(const Strip& strip, std::size_t glyph, const Draw& draw) {
    for (int y = 0; y < kTextHeight; ++y) {
        for (int x = 0; x < kGlyphWidth && !strip.rows[y].empty(); ++x) {
            if (strip.rows[y][kAdvance * glyph + static_cast<std::size_t>(x)] == '#') {
                draw(x, y);
            }
        }
    }
}

void DrawGlyph(TnImage& image, const TnPoint& at, char character, const TnColor& color, int dotSize) {
    for (const Strip& strip : kStrips) {
        const std::size_t glyph = strip.characters.find(character);
        if (glyph != std::string_view::npos) {
            ForEachDot(strip, glyph, [&](int x, int y) {
                ColorFill(image, {at.x + x * dotSize, at.y + y * dotSize, dotSize, dotSize}, color);
            });
        }
    }
}

} // namespace

void DrawText(TnImage& image, const TnPoint& at, std::string_view text, const TnColor& color, int dotSize) {
    TnPoint pen = at;
    for (const char character : text) {
        DrawGlyph(image, pen, character, color, dotSize);
        pen.x += kAdvance * dotSize;
    }
}
