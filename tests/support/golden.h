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

// What ends a control's line: a combo box's items, the marks of a checked or
// default button.
inline QString controlExtras(const QObject& o) {
    QString extras;
    if (auto* combo = qobject_cast<const QComboBox*>(&o)) {
        for (int i = 0; i < combo->count(); ++i) extras += ' ' + quoted(combo->itemText(i));
    }
    if (auto* button = qobject_cast<const QAbstractButton*>(&o); button && button->isChecked())
        extras += " checked";
    if (auto* button = qobject_cast<const QPushButton*>(&o)) {
        extras += QString(button->isDefault() ? " default" : "") +
                  (button->autoDefault() ? " autoDefault" : "");
    }
    return extras;
}

// The window and its named controls and menu items, bottom of the stack first,
// one line a control: name, class, caption, geometry in twips, enabled,
// visible, the named object it sits in, then its extras. Only the window and
// the controls inside it are measured: a main window's height and a menu's
// size follow the font.
inline QString controlLine(const QObject& o, const QWidget& window, const TwipScale& scale) {
    auto* widget = qobject_cast<const QWidget*>(&o);
    auto* action = qobject_cast<const QAction*>(&o);
    QString line = o.objectName() + ' ' + o.metaObject()->className() + ' ' + quoted(captionOf(&o));
    const bool measured =
        widget && !qobject_cast<const QMainWindow*>(&o) && (&o == &window || !widget->isWindow());
    const QRect r = measured ? widget->geometry() : QRect();
    for (const int px : {r.x(), r.y(), r.width(), r.height()}) {
        if (measured) line += ' ' + QString::number(std::lround(scale.toTwips(px)));
    }
    if (!measured) line += " -";
    line += (widget ? widget->isEnabled() : action->isEnabled()) ? " enabled" : " disabled";
    line += (widget ? widget->isVisibleTo(&window) : action->isVisible()) ? " visible" : " hidden";
    const QObject* parent = &o == &window ? nullptr : o.parent();
    while (parent != nullptr && parent->objectName().isEmpty()) parent = parent->parent();
    return line + ' ' + (parent != nullptr ? parent->objectName() : "-") + controlExtras(o) + '\n';
}
inline std::string controlTable(const QWidget& window, const TwipScale& scale) {
    QString table;
    for (const QObject* o :
         QList<const QObject*>{&window} + window.findChildren<const QObject*>()) {
        const bool named = !o->objectName().isEmpty() && !o->objectName().startsWith("qt_");
        if (named && (qobject_cast<const QWidget*>(o) || qobject_cast<const QAction*>(o)))
            table += controlLine(*o, window, scale);
    }
    return table.toStdString();
}

}  // namespace quintline::testing
