#include "game/toolkit.h"

namespace quintline {

std::string_view controlName(Control control) {
    switch (control) {
        case Control::mainForm:
            return "mainForm";
        case Control::Command1:
            return "Command1";
        case Control::cmdBack:
            return "cmdBack";
        case Control::cmdForw:
            return "cmdForw";
        case Control::whoRun:
            return "whoRun";
        case Control::winLab:
            return "winLab";
        case Control::Label1:
            return "Label1";
        case Control::stepNumLab:
            return "stepNumLab";
        case Control::checkPos:
            return "checkPos";
        case Control::blackSideLabel:
            return "blackSideLabel";
        case Control::whiteSideLabel:
            return "whiteSideLabel";
        case Control::List2:
            return "List2";
        case Control::List3:
            return "List3";
    }
    return "";
}

}  // namespace quintline
