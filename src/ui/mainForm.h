#pragma once
// mainForm: the window that stays open for the whole session. It holds the
// board, the replay buttons, the suggestion button, the status labels and the
// menu bar, and it is the game's Toolkit. Each event hands straight over to the
// game; the game writes plain values back through the Toolkit.

#include <QMainWindow>
#include <array>
#include <map>

#include "game/game.h"
#include "game/toolkit.h"
#include "ui/registry.h"
#include "ui/twips.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace quintline {

class BoardPicture;
enum class BoardFileDialogKind;

class MainForm : public QMainWindow, public Toolkit {
  public:
    // Builds the window and runs its load: caption into windowTitle, session
    // start-up and the first new game.
    explicit MainForm(SearchSet searches = {}, QWidget* parent = nullptr);

    Game& game() { return game_; }
    BoardPicture& boardPicture() { return *boardPic_; }
    const TwipScale& scale() const { return scale_; }

    // Toolkit.
    void setCaption(Control control, std::string_view text) override;
    void setEnabled(Control control, bool enabled) override;
    void clearList(Control list) override;
    void repaint() override;
    MessageAnswer messageBox(std::string_view text, MessageButtons buttons) override;
    void drawClearAndGrid() override;
    void drawStoneAndRing(Point point, Side colour, Side userColour) override;
    void drawPlainStone(Point point, Side colour) override;
    void eraseStone(Point point) override;
    void drawCandidateFrames(std::span<const Point> candidates) override;
    void drawSuggestionMark(Point point) override;
    std::string designCaption() override;
    double boardWidth() override;
    std::string depthBoxText(int index) override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildControls(QWidget* client);
    void buildMenu();
    void chooseBoardFile(BoardFileDialogKind kind);
    void showSettings();
    void showAbout();
    void quitProgram();
    QWidget* controlWidget(Control control) const;

    TwipScale scale_;
    Game game_;
    MemoryRegistry registry_;  // holds nothing on this platform
    BoardPicture* boardPic_ = nullptr;
    QPushButton* command1_ = nullptr;
    QPushButton* cmdBack_ = nullptr;
    QPushButton* cmdForw_ = nullptr;
    std::map<Control, QLabel*> labels_;
    std::map<Control, QListWidget*> lists_;
};

}  // namespace quintline
