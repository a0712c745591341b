#include "ui/tabOrder.h"

#include <QWidget>
#include <algorithm>

namespace quintline {

void applyTabOrder(std::vector<std::pair<int, QWidget*>> indexed) {
    std::sort(indexed.begin(), indexed.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < indexed.size(); ++i) {
        QWidget::setTabOrder(indexed[i - 1].second, indexed[i].second);
    }
}

}  // namespace quintline
