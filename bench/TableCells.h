// What tables are made of.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tn::bench {

using Cells = std::vector<std::string>;

/// The heading, the line below it and the others.
void PrintTable(const Cells& heading, const std::vector<Cells>& lines);

std::string Number(const char* format, double number);

/// A ratio past its limit is bold.
std::string Ratio(double ratio, const std::optional<double>& limit);

/// A limit, or nothing.
std::string Limit(const std::optional<double>& limit);

} // namespace tn::bench
