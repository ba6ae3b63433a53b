// Draws the pictures that the reference shows at its operations.
//
//   draw_gallery FOLDER   writes them as PNG files into a folder, which exists
//   draw_gallery --list   writes a heading for each group, and a line for each picture: its name and what it shows

#include "../Png.h"
#include "Entries.h"

#include <exception>
#include <iostream>
#include <string>
#include <string_view>

namespace {

void List() {
    std::string_view group;
    for (const Entry& entry : Entries()) {
        if (entry.group != group) {
            group = entry.group;
            std::cout << "## " << group << '\n';
        }
        std::cout << entry.file << ' ' << entry.operations << '\n';
    }
}

void DrawAll(const std::string& folder) {
    const TnGraphicsMem engines(0, BasekitString());
    for (const Entry& entry : Entries()) {
        WritePng(entry.show(), folder + "/" + std::string(entry.file) + ".png");
    }
    std::cout << Entries().size() << " pictures\n";
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: draw_gallery FOLDER | --list\n";
        return 2;
    }
    try {
        const std::string argument = arguments[1];
        argument == "--list" ? List() : DrawAll(argument);
    } catch (const std::exception& error) {
        std::cerr << "draw_gallery: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
