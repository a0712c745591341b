#pragma once
// Keyboard focus follows the tab indexes of a window's design.

#include <utility>
#include <vector>

class QWidget;

namespace quintline {

// Chains the widgets' tab order by ascending tab index.
void applyTabOrder(std::vector<std::pair<int, QWidget*>> indexed);

}  // namespace quintline
