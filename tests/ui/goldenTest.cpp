// The windows and the board figures against their reviewed files in tests/ui/golden
// (QUINTLINE_UPDATE_GOLDEN set rewrites them: a change of design shows as their diff),
// and every text a control can show fitting its design rectangle in the window's font:
// word-wrapped for a label, on one line in the style's text area for any other control.

#include <gtest/gtest.h>

#include <QtWidgets>
#include <cmath>
#include <map>
#include <memory>

#include "game/captions.h"
#include "game/settings.h"
#include "harness/schedule.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/figures.h"
#include "ui/imageCanvas.h"
#include "ui/mainForm.h"
#include "ui/settingsDialog.h"

namespace quintline {
namespace {

void expectGolden(const QString& name, const QString& text) {
    QFile file(QUINTLINE_GOLDEN_DIR "/" + name + ".txt");
    const bool update = qEnvironmentVariableIsSet("QUINTLINE_UPDATE_GOLDEN");
    ASSERT_TRUE(file.open(update ? QIODevice::WriteOnly : QIODevice::ReadOnly)) << qPrintable(name);
    if (update) {
        EXPECT_EQ(file.write(text.toUtf8()), text.toUtf8().size());
    } else {
        EXPECT_EQ(text.toStdString(), file.readAll().toStdString()) << qPrintable(name);
    }
}

// The text a control shows, whatever its kind.
QString captionOf(const QWidget* w) {
    for (const char* caption : {"text", "title", "currentText"})
        if (const QVariant v = w->property(caption); v.isValid()) return v.toString();
    return w->windowTitle();
}

QString quoted(QString text) {
    return '"' + text.replace('\\', "\\\\").replace('\n', "\\n").replace('"', "\\\"") + '"';
}

// The window and its named controls, bottom of the stack first, one line a control: name, class,
// caption, geometry in twips, enabled, visible, the named object it sits in, then a combo box's
// items, the marks of a checked or default button, and the items of a menu or of a window's menu
// bar in their order. Only the window and the controls inside it are measured: a main window's
// height and a menu's size follow the font.
QString controlLine(const QWidget* w, const QWidget& window, const TwipScale& scale) {
    QString line =
        w->objectName() + ' ' + w->metaObject()->className() + ' ' + quoted(captionOf(w));
    const bool measured = !qobject_cast<const QMainWindow*>(w) && (w == &window || !w->isWindow());
    const QRect r = w->geometry();
    for (const int px : {r.x(), r.y(), r.width(), r.height()})
        line += measured ? ' ' + QString::number(std::lround(scale.toTwips(px))) : "";
    line += measured ? "" : " -";
    line += w->isEnabled() ? " enabled" : " disabled";
    line += w->isVisibleTo(&window) ? " visible" : " hidden";
    const QObject* parent = w == &window ? nullptr : w->parent();
    while (parent != nullptr && parent->objectName().isEmpty()) parent = parent->parent();
    line += ' ' + (parent != nullptr ? parent->objectName() : "-");
    if (auto* combo = qobject_cast<const QComboBox*>(w))
        for (int i = 0; i < combo->count(); ++i) line += ' ' + quoted(combo->itemText(i));
    for (const char* mark : {"checked", "default", "autoDefault"})
        line += w->property(mark).toBool() ? QString(' ') + mark : "";
    QList<QAction*> items;
    if (auto* menu = qobject_cast<const QMenu*>(w)) items = menu->actions();
    if (auto* main = qobject_cast<const QMainWindow*>(w)) items = main->menuBar()->actions();
    for (const QAction* item : items)
        line += ' ' + (item->menu() ? item->menu()->objectName() : item->objectName()) + ' ' +
                quoted(item->text());
    return line + '\n';
}

QString controlTable(const QWidget& window, const TwipScale& scale) {
    QString table;
    for (const QWidget* w : QList<const QWidget*>{&window} + window.findChildren<const QWidget*>())
        if (!w->objectName().isEmpty() && !w->objectName().startsWith("qt_"))
            table += controlLine(w, window, scale);
    return table;
}

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

// The first control beside `w` that the rectangle runs into; none when it stays clear. Frames lie
// behind; a label covers its own text, any other control its whole rectangle.
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

// `text` shown in `w` stays inside its text area and runs into no neighbour.
void expectFits(const QWidget* w, const QString& text, const QString& where) {
    const QRect box = landing(w, text), area = textArea(w).first;
    const QWidget* hit = text.isEmpty() ? nullptr : runsInto(w, box);
    EXPECT_TRUE(text.isEmpty() || (area.contains(box) && !hit))
        << qPrintable(where + " \"" + text + "\" leaves its area or runs into ")
        << (hit ? qPrintable(hit->objectName()) : "nothing");
}

TEST(Windows, MatchTheirGoldenFilesAndEveryTextFits) {
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
        expectGolden(window->objectName(), controlTable(*window, scale));
        for (const QWidget* w : window->findChildren<const QWidget*>()) {
            const QString where = window->objectName() + "/" + w->objectName();
            QStringList texts;  // a line edit's text scrolls
            if (!qobject_cast<const QLineEdit*>(w)) texts << captionOf(w);
            if (auto* combo = qobject_cast<const QComboBox*>(w))
                for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
            if (const auto later = shownLater.find(where); later != shownLater.end()) {
                ++tableRowsMet;
                for (std::string_view text : later->second)
                    texts << QString::fromUtf8(text.data(), qsizetype(text.size()));
            }
            for (const QString& text : texts) expectFits(w, text, where);
        }
    }
    EXPECT_EQ(tableRowsMet, shownLater.size());
}

// The bounds of the pixels that differ, then how many of them are black, white or another colour.
QString changedPixels(const QImage& before, const QImage& after) {
    QRect changed;
    int counts[3] = {};
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            if (const QRgb p = after.pixel(x, y); p != before.pixel(x, y)) {
                changed |= QRect(x, y, 1, 1);
                ++counts[p == 0xFF000000 ? 0 : p == 0xFFFFFFFF ? 1 : 2];
            }
    return QString::asprintf(": %d %d %d %d black %d white %d other %d\n", changed.left(),
                             changed.top(), changed.right(), changed.bottom(), counts[0], counts[1],
                             counts[2]);
}

// Each board figure as it lands in the retained image: the pixels it changed (their bounds, then
// how many turned black, white or another colour) on a fresh 8000-twip canvas at 96 dots per inch.
TEST(BoardFigures, DrawIntoTheImageAtItsScale) {
    EXPECT_EQ(ImageCanvas(TwipScale(144), 8000, 6000, 0xD4D0C8).image().size(), QSize(800, 600));
    using namespace figures;
    const struct {
        const char* name;
        char figure;  // Ring and stone, Plain, Erased, Suggestion, Frames, grid
        Point at;
        Side colour, user;
    } drawings[] = {
        {"first stone", 'R', {8, 8}, black, white}, {"white, ringed", 'R', {1, 15}, white, black},
        {"user's own", 'R', {3, 4}, black, black},  {"no side", 'R', {2, 2}, 0, white},
        {"plain", 'P', {9, 8}, white, 0},           {"erased", 'E', {8, 8}, white, 0},
        {"suggestion", 'S', {7, 9}, 0, 0},          {"frames, then a line", 'F', {15, 2}, 0, 0},
        {"no frames, a line", 'F', {0, 0}, 0, 0},   {"grid, 4000 high", 'G', {}, 0, 0},
    };
    QString drawn;
    for (const auto& d : drawings) {
        ImageCanvas c(TwipScale(96), 8000, d.figure == 'G' ? 4000 : 8000, 0xD4D0C8);
        const QImage blank = c.image();
        const Point frames[] = {{1, 1}, d.at};
        if (d.figure == 'R') stoneAndRing(c, 533, d.at, d.colour, d.user);
        if (d.figure == 'P' || d.figure == 'E') plainStone(c, 533, d.at, d.colour);
        if (d.figure == 'E') eraseStone(c, 533, d.at);
        if (d.figure == 'S') suggestionMark(c, 533, d.at);
        if (d.figure == 'F') candidateFrames(c, 533, std::span(frames, d.at.x ? 2 : 0));
        if (d.figure == 'F') c.line(0, 6000, 8000, 6000);  // in the pen's width again
        if (d.figure == 'G') clearAndGrid(c);
        drawn += d.name + changedPixels(blank, c.image());
    }
    expectGolden("figures", drawn);
}

}  // namespace
}  // namespace quintline
