// What the program paints, told to assistive technology.
#pragma once

namespace tavo::qt {

// From now on painted widgets are described by the items that were declared on them.
void DescribePaintedWidgets();

} // namespace tavo::qt
