// Every window's controls against its golden file in tests/ui/golden, and every
// text a control can show fitting its design rectangle in the window's font:
// word-wrapped at the control's width for a label, on one line inside the
// style's text area for a button, a radio button or a combo box.

#include <QtWidgets>
#include <map>
#include <memory>

#include "game/captions.h"
#include "game/settings.h"
#include "harness/schedule.h"
#include "support/golden.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/mainForm.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

// The rectangle a control draws its text in, in its parent, and how it lays the text out there.
std::pair<QRect, int> textArea(const QWidget* w) {
    QStyleOptionButton button;
    button.initFrom(w);
    QStyleOptionComboBox combo;
    combo.initFrom(w);
    combo.editable = true;
    const QStyle* style = w->style();
    std::pair<QRect, int> area{w->contentsRect(), Qt::AlignLeft | Qt::AlignTop};
    if (auto* label = qobject_cast<const QLabel*>(w); label && label->wordWrap())
        area.second |= Qt::TextWordWrap;
    if (qobject_cast<const QRadioButton*>(w))
        area = {style->subElementRect(QStyle::SE_RadioButtonContents, &button, w),
                Qt::TextShowMnemonic | Qt::AlignLeft | Qt::AlignVCenter};
    if (qobject_cast<const QPushButton*>(w))
        area = {style->subElementRect(QStyle::SE_PushButtonContents, &button, w),
                Qt::TextShowMnemonic | Qt::AlignCenter};
    if (qobject_cast<const QComboBox*>(w))  // its line edit keeps two pixels clear each side
        area = {style->subControlRect(QStyle::CC_ComboBox, &combo, QStyle::SC_ComboBoxEditField, w)
                    .adjusted(2, 0, -2, 0),
                Qt::AlignLeft | Qt::AlignVCenter};
    area.first.translate(w->pos());
    return area;
}

// Where `text` lands in `w`'s parent.
QRect landing(const QWidget* w, const QString& text) {
    const auto [area, flags] = textArea(w);
    return w->fontMetrics().boundingRect(area, flags, text);
}

// The first control beside `w` that the rectangle runs into; none when it stays
// clear. Frames lie behind; a label covers its own text, any other control its
// whole rectangle.
const QWidget* runsInto(const QWidget* w, const QRect& rect) {
    for (const QWidget* other :
         w->parentWidget()->findChildren<const QWidget*>(Qt::FindDirectChildrenOnly)) {
        auto* label = qobject_cast<const QLabel*>(other);
        const QRect covered = label ? landing(label, label->text()) : other->geometry();
        if (other != w && !other->isHidden() && !qobject_cast<const QGroupBox*>(other) &&
            covered.intersects(rect))
            return other;
    }
    return nullptr;
}

TEST(WindowLayout, EveryWindowMatchesItsGoldenFileAndEveryTextFits) {
    using Texts = std::vector<std::string_view>;
    using namespace captions;
    Texts sides{userName, computerAName, computerBName, aKnowsBSide, bKnowsASide};
    for (const Pairing& p : Schedule::fixed())
        sides.insert(sides.end(), {p.blackCaption, p.whiteCaption});
    const std::string lastStep = std::to_string(maxStones);
    // What game control writes into a control later, by window and control name.
    const std::map<QString, Texts> shownLater{
        {"mainForm/whoRun",
         {aRunning, bRunning, aKnowsBRunning, bKnowsARunning, usersRunning, noOneWins, computerWins,
          aBlackWins, bBlackWins, aWhiteWins, bWhiteWins, replayBlackWins, replayWhiteWins,
          replayNoOneWins}},
        {"mainForm/blackSideLabel", sides},
        {"mainForm/whiteSideLabel", sides},
        {"mainForm/winLab", {blackWillWin, whiteWillWin, noOneWillWin, notSure}},
        {"mainForm/Command1", {suggestionOn, suggestionOff}},
        {"mainForm/stepNumLab", {lastStep}},
        {"mainForm/checkPos", {lastStep}},
        {"mainForm/Label1", {"9"}},
        {"settingsDialog/Combo3(0)", {"10"}},  // two characters, refused but shown
        {"settingsDialog/Combo3(1)", {"10"}},
    };

    const TwipScale scale = TwipScale::ofScreen();
    MemoryRegistry store;
    std::string path;
    const std::unique_ptr<QWidget> windows[] = {
        std::make_unique<MainForm>(),
        std::make_unique<SettingsDialog>(scale),
        std::make_unique<BoardFileDialog>(BoardFileDialogKind::save, scale, path),
        std::make_unique<BoardFileDialog>(BoardFileDialogKind::open, scale, path),
        std::make_unique<AboutBox>(scale, SysInfoPlatform{store, {}, {}, {}}),
    };
    std::size_t tableRowsMet = 0;
    for (const auto& window : windows) {
        testing::expectGolden(window->objectName().toStdString(),
                              testing::controlTable(*window, scale));
        for (const QWidget* w : window->findChildren<const QWidget*>()) {
            const QString where = window->objectName() + "/" + w->objectName();
            QStringList texts;  // a line edit's text scrolls
            if (!qobject_cast<const QLineEdit*>(w)) texts << testing::captionOf(w);
            if (auto* combo = qobject_cast<const QComboBox*>(w))
                for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
            if (const auto later = shownLater.find(where); later != shownLater.end()) {
                ++tableRowsMet;
                for (std::string_view text : later->second)
                    texts << QString::fromUtf8(text.data(), qsizetype(text.size()));
            }
            for (const QString& text : texts) {
                const QRect box = landing(w, text), area = textArea(w).first;
                const QWidget* hit = text.isEmpty() ? nullptr : runsInto(w, box);
                EXPECT_TRUE(text.isEmpty() || (area.contains(box) && hit == nullptr))
                    << qPrintable(where) << " \"" << qPrintable(text) << "\" needs " << box.width()
                    << "x" << box.height() << " of " << area.width() << "x" << area.height()
                    << (hit ? " and runs into " + hit->objectName().toStdString() : "");
            }
        }
    }
    EXPECT_EQ(tableRowsMet, shownLater.size());
}

}  // namespace
}  // namespace quintline
