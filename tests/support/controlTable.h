#pragma once
// A window's controls as a table of text, one line a control, to compare with
// a reviewed golden file: name, class, caption, geometry in twips, enabled,
// visible, and the named object it sits in. Fonts play no part in any line.

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
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

inline QString quoted(QString text) {
    return '"' + text.replace('\\', "\\\\").replace('\n', "\\n").replace('"', "\\\"") + '"';
}

// The controls and menu items of `window` that carry a design name, in the
// order they were made. Only the window itself and the controls inside it are
// measured: a main window's height and a menu's size follow the font.
inline QString controlTable(const QWidget& window, const TwipScale& scale) {
    QList<const QObject*> objects{&window};
    objects += window.findChildren<const QObject*>();
    QString table;
    for (const QObject* o : objects) {
        auto* widget = qobject_cast<const QWidget*>(o);
        auto* action = qobject_cast<const QAction*>(o);
        if (o->objectName().isEmpty() || o->objectName().startsWith("qt_") || !(widget || action))
            continue;
        QString line =
            o->objectName() + ' ' + o->metaObject()->className() + ' ' + quoted(captionOf(o)) + ' ';
        if (widget && !qobject_cast<const QMainWindow*>(o) &&
            (o == &window || !widget->isWindow())) {
            const QRect r = widget->geometry();
            for (const int px : {r.x(), r.y(), r.width(), r.height()})
                line += QString::number(std::lround(scale.toTwips(px))) + ' ';
        } else {
            line += "- ";
        }
        const bool enabled = widget ? widget->isEnabled() : action->isEnabled();
        const bool visible = widget ? widget->isVisibleTo(&window) : action->isVisible();
        line += QString(enabled ? "enabled " : "disabled ") + (visible ? "visible " : "hidden ");
        const QObject* parent = o->parent();
        while (o != &window && parent != nullptr && parent->objectName().isEmpty())
            parent = parent->parent();
        line += o == &window || parent == nullptr ? "-" : parent->objectName();
        if (auto* combo = qobject_cast<const QComboBox*>(o)) {
            for (int i = 0; i < combo->count(); ++i) line += ' ' + quoted(combo->itemText(i));
        }
        table += line + '\n';
    }
    return table;
}

}  // namespace quintline::testing
