#include "ui/mainForm.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <optional>

#include "boardfile/boardFile.h"
#include "game/designValues.h"
#include "game/settings.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "ui/aboutBox.h"
#include "ui/boardFileDialog.h"
#include "ui/boardPicture.h"
#include "ui/figures.h"
#include "ui/messageBox.h"
#include "ui/settingsDialog.h"
#include "ui/tabOrder.h"

namespace quintline {

namespace {

constexpr double boardPicWidth = design::boardWidth;
constexpr double boardPicHeight = design::boardWidth;  // the board is square

QString fromView(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

MainForm::MainForm(SearchSet searches, QWidget* parent)
    : QMainWindow(parent), scale_(TwipScale::ofScreen()), game_(*this, searches) {
    setObjectName("mainForm");
    setWindowTitle(fromView(design::mainCaption));
    setFont(scale_.font());
    auto* client = new QWidget(this);
    client->setObjectName("client");
    client->setMinimumSize(scale_.pixels(10950), scale_.pixels(8865));
    setCentralWidget(client);
    buildControls(client);
    buildMenu();
    resize(client->minimumSize().width(),
           client->minimumSize().height() + menuBar()->sizeHint().height());

    // Window load.
    game_.state().windowTitle = windowTitle().toStdString();
    game_.startSession();
    game_.newGame();
}

void MainForm::buildControls(QWidget* client) {
    const TwipScale& s = scale_;
    command1_ =
        placeNamed(new QPushButton("suggestion", client), "Command1", s, 120, 105, 1335, 315);

    const char* listNames[] = {"List1", "List2", "List3"};
    const double listLefts[] = {8280, 9000, 9720};
    std::array<QListWidget*, 3> lists{};
    for (int i = 0; i < 3; ++i) {
        lists[i] = new QListWidget(client);
        lists[i]->setObjectName(listNames[i]);
        place(lists[i], s, listLefts[i], 120, 735, 3960);
        lists[i]->hide();
    }
    lists_ = {{Control::List2, lists[1]}, {Control::List3, lists[2]}};

    // The board's border sits just outside the picture, so that the picture
    // keeps the design size as its drawing area.
    auto* border = new QFrame(client);
    border->setObjectName("boardPicBorder");
    border->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    border->setLineWidth(1);
    const QRect boardRect = s.rect(120, 480, boardPicWidth, boardPicHeight);
    border->setGeometry(boardRect.adjusted(-1, -1, 1, 1));
    const Colour background = palette().color(QPalette::Button).rgb() & 0xFFFFFFu;
    boardPic_ = new BoardPicture(s, boardPicWidth, boardPicHeight, background, client);
    boardPic_->setObjectName("boardPic");
    boardPic_->setGeometry(boardRect);
    boardPic_->onMouseDown = [this](float x, float y) { game_.boardMouseDown(x, y); };

    auto* frame1 = new QGroupBox(client);
    frame1->setObjectName("Frame1");
    place(frame1, s, 75, -30, 8040, 495);
    auto* backwardEnd =
        placeNamed(new QPushButton("|<", frame1), "backwardEnd", s, 1575, 120, 495, 345);
    auto* cmdForwardEnd =
        placeNamed(new QPushButton(">|", frame1), "cmdForwardEnd", s, 3045, 105, 495, 345);
    cmdBack_ = placeNamed(new QPushButton("<", frame1), "cmdBack", s, 2070, 105, 495, 345);
    cmdBack_->setEnabled(false);
    cmdForw_ = placeNamed(new QPushButton(">", frame1), "cmdForw", s, 2550, 105, 495, 345);
    cmdForw_->setEnabled(false);
    QPalette grey = cmdForw_->palette();
    grey.setColor(QPalette::Button, QColor(0xC0, 0xC0, 0xC0));
    cmdForw_->setPalette(grey);

    struct LabelDesign {
        std::optional<Control> control;  // none for a fixed text
        const char* name;
        const char* caption;
        double left, top, width, height;
    };
    const LabelDesign labelDesigns[] = {
        {Control::whoRun, "whoRun", "Computer A is running", 8280, 8040, 2415, 375},
        {Control::whiteSideLabel, "whiteSideLabel", "User", 8880, 7440, 1455, 375},
        {Control::blackSideLabel, "blackSideLabel", "Computer A", 8880, 7080, 1455, 375},
        {std::nullopt, "WhiteLabel", "White:", 8280, 7440, 615, 375},
        {std::nullopt, "blackLable", "Black:", 8280, 7080, 615, 375},
        {Control::checkPos, "checkPos", "0", 9600, 6570, 735, 375},
        {std::nullopt, "Label4", "check position:", 8310, 6555, 1275, 315},
        {std::nullopt, "Label2", "stepNum:", 8280, 5280, 855, 390},
        {Control::Label1, "Label1", "0", 9600, 5760, 615, 255},
        {Control::winLab, "winLab", "will I win?", 8295, 6120, 2100, 300},
        {Control::stepNumLab, "stepNumLab", "0", 9600, 5280, 615, 255},
        {std::nullopt, "Label3", "search depth:", 8280, 5760, 975, 495},
    };
    for (const LabelDesign& d : labelDesigns) {
        auto* label = new QLabel(d.caption, client);
        label->setObjectName(d.name);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        place(label, s, d.left, d.top, d.width, d.height);
        if (d.control) labels_[*d.control] = label;
    }

    // Command1 lies under the left end of the replay frame; it is lifted so that
    // the frame does not take its clicks.
    command1_->raise();

    applyTabOrder({{1, lists[2]},
                   {7, lists[1]},
                   {8, lists[0]},
                   {9, command1_},
                   {11, cmdForw_},
                   {12, cmdBack_},
                   {15, cmdForwardEnd},
                   {16, backwardEnd}});

    connect(command1_, &QPushButton::clicked, this, [this] { game_.toggleSuggestion(); });
    connect(cmdBack_, &QPushButton::clicked, this, [this] { game_.cmdBackClick(); });
    connect(cmdForw_, &QPushButton::clicked, this, [this] { game_.cmdForwClick(); });
    connect(backwardEnd, &QPushButton::clicked, this, [this] { game_.backwardEndClick(); });
    connect(cmdForwardEnd, &QPushButton::clicked, this, [this] { game_.cmdForwardEndClick(); });
}

void MainForm::buildMenu() {
    QMenuBar* bar = menuBar();
    const auto barItem = [&](const char* name, const char* caption, auto handler) {
        QAction* action = bar->addAction(caption);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, handler);
        return action;
    };
    barItem("new", "&New", [this] { game_.newGame(); });
    barItem("save", "&Save", [this] { chooseBoardFile(BoardFileDialogKind::save); });
    barItem("read", "&Read", [this] { chooseBoardFile(BoardFileDialogKind::open); });

    QMenu* testsuit = bar->addMenu("&Testsuit");
    testsuit->setObjectName("testsuit");
    testsuit->setFont(font());  // a menu is a window of its own and keeps no font of ours
    const auto tournamentItem = [&](QMenu* menu, const char* name, const char* caption,
                                    std::int16_t cycles) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, [this, cycles] {
            game_.state().cycleCount = cycles;
            runTournament(game_);
        });
    };
    tournamentItem(testsuit, "randomtest", "random 1000", 1000);
    QMenu* random = testsuit->addMenu("random");
    random->setObjectName("random");
    random->setFont(font());
    tournamentItem(random, "one", "1", 1);
    tournamentItem(random, "ten", "10", 10);
    tournamentItem(random, "hundred", "100", 100);
    tournamentItem(random, "thousand", "1000", 1000);
    tournamentItem(random, "five_thousand", "5000", 5000);
    tournamentItem(random, "ten_thousand", "10000", 10000);
    QAction* fromFile = testsuit->addAction("fromFile");
    fromFile->setObjectName("fromFiletest");
    connect(fromFile, &QAction::triggered, this, [this] { runTestSuite(game_); });

    barItem("sr", "Se&ttings", [this] { showSettings(); });
    barItem("about", "&About", [this] { showAbout(); });
    barItem("quit", "&Quit", [this] { quitProgram(); });
}

void MainForm::chooseBoardFile(BoardFileDialogKind kind) {
    GameState& s = game_.state();
    {
        BoardFileDialog dialog(kind, scale_, s.boardFilePath, this);
        dialog.exec();
    }
    if (s.boardFilePath.empty()) return;
    setWindowTitle(QString::fromStdString(s.windowTitle + "      " + s.boardFilePath));
    if (kind == BoardFileDialogKind::save) {
        saveBoardFile(game_);
    } else {
        readBoardFile(game_);
    }
}

void MainForm::showSettings() {
    SettingsValues values;
    fillSettings(game_, values);
    SettingsDialog dialog(scale_, this);
    dialog.setValues(values);
    dialog.onOk = [this, &dialog] {
        acceptSettings(game_, dialog.values(), [&dialog] { dialog.done(QDialog::Accepted); });
    };
    dialog.exec();
}

void MainForm::showAbout() {
    AboutBox about(scale_, desktopSysInfo(registry_, this), this);
    about.exec();
}

void MainForm::quitProgram() {
    QCoreApplication::exit(0);
}

void MainForm::closeEvent(QCloseEvent* event) {
    // Closing through the frame ends the program just as the quit item does.
    event->accept();
    quitProgram();
}

QWidget* MainForm::controlWidget(Control control) const {
    switch (control) {
        case Control::mainForm:
            return nullptr;
        case Control::Command1:
            return command1_;
        case Control::cmdBack:
            return cmdBack_;
        case Control::cmdForw:
            return cmdForw_;
        case Control::List2:
        case Control::List3:
            return lists_.at(control);
        default:
            return labels_.at(control);
    }
}

void MainForm::setCaption(Control control, std::string_view text) {
    const QString caption = fromView(text);
    if (control == Control::mainForm) {
        setWindowTitle(caption);
    } else if (auto* button = qobject_cast<QPushButton*>(controlWidget(control))) {
        button->setText(caption);
    } else if (auto* label = qobject_cast<QLabel*>(controlWidget(control))) {
        label->setText(caption);
    }
}

void MainForm::setEnabled(Control control, bool enabled) {
    if (QWidget* widget = controlWidget(control)) widget->setEnabled(enabled);
}

void MainForm::clearList(Control list) {
    if (auto* widget = qobject_cast<QListWidget*>(controlWidget(list))) widget->clear();
}

void MainForm::repaint() {
    QMainWindow::repaint();
}

MessageAnswer MainForm::messageBox(std::string_view text, MessageButtons buttons) {
    return showMessageBox(this, text, buttons);
}

void MainForm::drawClearAndGrid() {
    figures::clearAndGrid(boardPic_->canvas());
    boardPic_->update();
}

void MainForm::drawStoneAndRing(Point point, Side colour, Side userColour) {
    figures::stoneAndRing(boardPic_->canvas(), game_.state().cellSize, point, colour, userColour);
    boardPic_->update();
}

void MainForm::drawPlainStone(Point point, Side colour) {
    figures::plainStone(boardPic_->canvas(), game_.state().cellSize, point, colour);
    boardPic_->update();
}

void MainForm::eraseStone(Point point) {
    figures::eraseStone(boardPic_->canvas(), game_.state().cellSize, point);
    boardPic_->update();
}

void MainForm::drawCandidateFrames(std::span<const Point> candidates) {
    figures::candidateFrames(boardPic_->canvas(), game_.state().cellSize, candidates);
    boardPic_->update();
}

void MainForm::drawSuggestionMark(Point point) {
    figures::suggestionMark(boardPic_->canvas(), game_.state().cellSize, point);
    boardPic_->update();
}

std::string MainForm::designCaption() {
    return std::string(design::mainCaption);
}

double MainForm::boardWidth() {
    return boardPic_->canvas().width();
}

std::string MainForm::depthBoxText(int index) {
    return designDepthBoxText(index);
}

}  // namespace quintline
