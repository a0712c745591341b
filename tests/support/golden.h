#pragma once
// Golden files: a text compared with its reviewed file in QUINTLINE_GOLDEN_DIR,
// and a window's controls as such a text. Run with QUINTLINE_UPDATE_GOLDEN set
// to rewrite the files instead; a change of design then shows as their diff.

#include <gtest/gtest.h>

#include <QtWidgets>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "ui/twips.h"

namespace quintline::testing {

inline void expectGolden(const std::string& name, const std::string& text) {
    const std::string path = QUINTLINE_GOLDEN_DIR "/" + name + ".txt";
    if (std::getenv("QUINTLINE_UPDATE_GOLDEN") != nullptr) {
        ASSERT_TRUE(std::ofstream(path) << text) << path;
        return;
    }
    std::stringstream golden;
    ASSERT_TRUE(golden << std::ifstream(path).rdbuf()) << path;
    EXPECT_EQ(text, golden.str()) << path;
}

// The text a control shows, whatever its kind.
inline QString captionOf(const QObject* o) {
    if (auto* label = qobject_cast<const QLabel*>(o)) return label->text();
    if (auto* button = qobject_cast<const QAbstractButton*>(o)) return button->text();
    if (auto* combo = qobject_cast<const QComboBox*>(o)) return combo->currentText();
    if (auto* group = qobject_cast<const QGroupBox*>(o)) return group->title();
    if (auto* edit = qobject_cast<const QLineEdit*>(o)) return edit->text();
    if (auto* menu = qobject_cast<const QMenu*>(o)) return menu->title();
    if (auto* action = qobject_cast<const QAction*>(o)) return action->text();
    return qobject_cast<const QWidget*>(o)->windowTitle();
}

// The control of a window with the given name.
template <class Control = QWidget>
Control* in(const QWidget& window, const char* name) {
    return window.findChild<Control*>(name);
}

inline QString quoted(QString text) {
    return '"' + text.replace('\\', "\\\\").replace('\n', "\\n").replace('"', "\\\"") + '"';
}

// The window and its named controls and menu items, bottom of the stack first,
// one line a control: name, class, caption, geometry in twips, enabled,
// visible, the named object it sits in, then a combo box's items and the marks
// of a checked or default button. Only the window and the controls inside it
// are measured: a main window's height and a menu's size follow the font.
inline std::string controlTable(const QWidget& window, const TwipScale& scale) {
    QString table;
    for (const QObject* o :
         QList<const QObject*>{&window} + window.findChildren<const QObject*>()) {
        auto* widget = qobject_cast<const QWidget*>(o);
        auto* action = qobject_cast<const QAction*>(o);
        if (o->objectName().isEmpty() || o->objectName().startsWith("qt_") || !(widget || action))
            continue;
        table += o->objectName() + ' ' + o->metaObject()->className() + ' ' + quoted(captionOf(o));
        const bool measured =
            widget && !qobject_cast<const QMainWindow*>(o) && (o == &window || !widget->isWindow());
        const QRect r = measured ? widget->geometry() : QRect();
        for (const int px : {r.x(), r.y(), r.width(), r.height()}) {
            if (measured) table += ' ' + QString::number(std::lround(scale.toTwips(px)));
        }
        if (!measured) table += " -";
        table += (widget ? widget->isEnabled() : action->isEnabled()) ? " enabled" : " disabled";
        table +=
            (widget ? widget->isVisibleTo(&window) : action->isVisible()) ? " visible" : " hidden";
        const QObject* parent = o == &window ? nullptr : o->parent();
        while (parent != nullptr && parent->objectName().isEmpty()) parent = parent->parent();
        table += ' ' + (parent != nullptr ? parent->objectName() : "-");
        if (auto* combo = qobject_cast<const QComboBox*>(o)) {
            for (int i = 0; i < combo->count(); ++i) table += ' ' + quoted(combo->itemText(i));
        }
        if (auto* button = qobject_cast<const QAbstractButton*>(o); button && button->isChecked())
            table += " checked";
        if (auto* button = qobject_cast<const QPushButton*>(o)) {
            table += QString(button->isDefault() ? " default" : "") +
                     (button->autoDefault() ? " autoDefault" : "");
        }
        table += '\n';
    }
    return table.toStdString();
}

}  // namespace quintline::testing
