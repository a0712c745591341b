#pragma once
// The program's message boxes: no title, OK or OK and Cancel, modal over the
// window that is active.

#include <string_view>

#include "game/toolkit.h"

class QWidget;

namespace quintline {

MessageAnswer showMessageBox(QWidget* fallbackParent, std::string_view text,
                             MessageButtons buttons);

}  // namespace quintline
