#pragma once
// A window whose title bar stays empty. Qt gives a window with an empty title
// the application's name in the window system; these windows clear the name
// the window manager reads, once the native window exists and before it is
// shown.

class QWidget;

namespace quintline {

// Empties the names (_NET_WM_NAME and WM_NAME) of `window`'s native window
// under X11; elsewhere the empty Qt title stands as it is.
void clearNativeTitle(QWidget* window);

}  // namespace quintline
