// PNG files in and out of images.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <string>

/// Reads a picture of any kind of PNG. Throws std::runtime_error with libpng's message.
TnImage ReadPng(const std::string& path);

/// Writes the image's content with its alpha. Throws std::runtime_error with libpng's message.
void WritePng(const TnImage& image, const std::string& path);
