#pragma once
// A window's controls as text, one line a control: name, class, caption,
// geometry in twips, enabled, visible, the named object it sits in, then a
// combo box's items and the marks of a checked or default button. Fonts play no part in it.

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <cmath>

#include "ui/twips.h"

namespace quintline::testing {

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

// What follows a control's state: the items of a combo box, and the marks of a
// checked or default button.
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

// One line of the table for a named widget or action of `window`.
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
    line += ' ' + (parent != nullptr ? parent->objectName() : "-");
    return line + controlExtras(o) + '\n';
}

// The window and its named controls and menu items, bottom of the stack first.
// Only the window and the controls inside it are measured: a main window's
// height and a menu's size follow the font.
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
