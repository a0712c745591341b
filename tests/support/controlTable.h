#pragma once
// Checks a window's controls against a table of design rows: found by name,
// showing their caption, placed where the design puts them.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <initializer_list>

namespace quintline::testing {

// The text a control shows, whatever its kind.
inline QString captionOf(const QWidget* w) {
    if (auto* label = qobject_cast<const QLabel*>(w)) return label->text();
    if (auto* button = qobject_cast<const QAbstractButton*>(w)) return button->text();
    if (auto* combo = qobject_cast<const QComboBox*>(w)) return combo->currentText();
    if (auto* group = qobject_cast<const QGroupBox*>(w)) return group->title();
    if (auto* edit = qobject_cast<const QLineEdit*>(w)) return edit->text();
    return w->windowTitle();
}

struct ControlRow {
    const char* name;
    const char* caption;  // nullptr: none to check
    QRect geometry;       // in its parent, in pixels
};

inline void expectControls(const QWidget& window, std::initializer_list<ControlRow> rows) {
    for (const ControlRow& row : rows) {
        const auto* widget = window.findChild<const QWidget*>(row.name);
        ASSERT_NE(widget, nullptr) << row.name;
        if (row.caption != nullptr) {
            EXPECT_EQ(captionOf(widget), row.caption) << row.name;
        }
        EXPECT_EQ(widget->geometry(), row.geometry) << row.name;
    }
}

}  // namespace quintline::testing
