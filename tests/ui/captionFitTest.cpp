// Every text a control can show fits its design rectangle in its window's font:
// word-wrapped at the control's width for a label, on one line inside the
// style's text area for a button, a radio button or a combo box.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <map>

#include "game/captions.h"
#include "game/settings.h"
#include "harness/schedule.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/mainForm.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

using Texts = std::vector<std::string_view>;

// The rectangle a control draws its text in, and how it lays the text out there.
std::pair<QRect, int> textArea(const QWidget* w) {
    QStyleOptionButton button;
    button.initFrom(w);
    QStyleOptionComboBox combo;
    combo.initFrom(w);
    combo.editable = true;
    const QStyle* style = w->style();
    if (qobject_cast<const QRadioButton*>(w))
        return {style->subElementRect(QStyle::SE_RadioButtonContents, &button, w),
                Qt::TextShowMnemonic | Qt::AlignLeft | Qt::AlignVCenter};
    if (qobject_cast<const QPushButton*>(w))
        return {style->subElementRect(QStyle::SE_PushButtonContents, &button, w),
                Qt::TextShowMnemonic | Qt::AlignCenter};
    if (qobject_cast<const QComboBox*>(w))  // its line edit keeps two pixels clear each side
        return {style->subControlRect(QStyle::CC_ComboBox, &combo, QStyle::SC_ComboBoxEditField, w)
                    .adjusted(2, 0, -2, 0),
                Qt::AlignLeft | Qt::AlignVCenter};
    auto* label = qobject_cast<const QLabel*>(w);
    return {w->contentsRect(), Qt::AlignLeft | Qt::AlignTop |
                                   (label != nullptr && label->wordWrap() ? Qt::TextWordWrap : 0)};
}

// The texts a control shows of itself: its caption, or every item of a combo box.
QStringList ownTexts(const QWidget* w) {
    if (auto* label = qobject_cast<const QLabel*>(w)) return {label->text()};
    if (auto* button = qobject_cast<const QAbstractButton*>(w)) return {button->text()};
    if (auto* group = qobject_cast<const QGroupBox*>(w)) return {group->title()};
    QStringList items;
    if (auto* combo = qobject_cast<const QComboBox*>(w))
        for (int i = 0; i < combo->count(); ++i) items << combo->itemText(i);
    return items;
}

// Where `text` lands in `w`'s parent, and the area it has there.
std::pair<QRect, QRect> landing(const QWidget* w, const QString& text) {
    auto [area, flags] = textArea(w);
    area.translate(w->pos());
    return {w->fontMetrics().boundingRect(area, flags, text), area};
}

// The first control beside `w` that the rectangle runs into; none when it stays
// clear. Frames lie behind; a label covers its own text, any other control its
// whole rectangle.
const QWidget* runsInto(const QWidget* w, const QRect& rect) {
    for (const QWidget* other :
         w->parentWidget()->findChildren<const QWidget*>(Qt::FindDirectChildrenOnly)) {
        auto* label = qobject_cast<const QLabel*>(other);
        const QRect covered = label ? landing(label, label->text()).first : other->geometry();
        if (other != w && !other->isHidden() && !qobject_cast<const QGroupBox*>(other) &&
            covered.intersects(rect))
            return other;
    }
    return nullptr;
}

TEST(CaptionFit, EveryTextFitsItsControlAndStaysClearOfTheOthers) {
    Texts sides{userName, computerAName, computerBName, captions::aKnowsBSide,
                captions::bKnowsASide};
    for (const Pairing& p : Schedule::fixed())
        sides.insert(sides.end(), {p.blackCaption, p.whiteCaption});
    const std::string lastStep = std::to_string(maxStones);
    using namespace captions;
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

    MainForm form;
    const TwipScale scale = TwipScale::ofScreen();
    MemoryRegistry registry;
    std::string path;
    SettingsDialog settings(scale);
    AboutBox about(scale, {registry, {}, {}, {}});
    BoardFileDialog save(BoardFileDialogKind::save, scale, path);
    BoardFileDialog open(BoardFileDialogKind::open, scale, path);
    std::size_t tableRowsMet = 0;
    for (const QWidget* window :
         std::initializer_list<const QWidget*>{&form, &settings, &about, &save, &open}) {
        for (const QWidget* w : window->findChildren<const QWidget*>()) {
            const QString where = window->objectName() + "/" + w->objectName();
            QStringList texts = ownTexts(w);
            if (const auto later = shownLater.find(where); later != shownLater.end()) {
                ++tableRowsMet;
                for (std::string_view text : later->second)
                    texts << QString::fromUtf8(text.data(), qsizetype(text.size()));
            }
            for (const QString& text : texts) {
                if (text.isEmpty()) continue;
                const auto [box, area] = landing(w, text);
                const QWidget* hit = runsInto(w, box);
                EXPECT_TRUE(area.contains(box) && hit == nullptr)
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
