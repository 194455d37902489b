// Icons of the program's resources as the toolkit shows them.
#pragma once

#include <QIcon>

#include <string>

namespace pintalux {

/// An SVG of the resources (":/icons/pen.svg"), drawn for every size and scale anew. In a dark theme its
/// neutral outlines are light. A file that does not exist gives the empty icon.
QIcon IconOf(const std::string& resource);

} // namespace pintalux
