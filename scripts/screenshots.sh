#!/usr/bin/env bash
# Shows the desktop program on a virtual X screen under a real window manager
# (openbox), saves a picture of each scene and reads it back with OCR: every
# caption listed must come out whole. Also checks that a message box leaves its
# title bar empty. Pictures and OCR text go to OUTDIR (default build/screenshots).
# Usage: scripts/screenshots.sh [OUTDIR]; needs a built build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ -z "${QUINTLINE_ON_XVFB:-}" ]; then
  QUINTLINE_ON_XVFB=1 exec xvfb-run -a -s "-screen 0 1280x1024x24 -dpi 96" "$0" "$@"
fi

out=${1:-build/screenshots}
mkdir -p "$out"
out=$(cd "$out" && pwd)
driver=$(pwd)/build/release/app/quintline_screenshot
export QT_QPA_PLATFORM=xcb

openbox >/dev/null 2>&1 &
wm=$!
trap 'kill $wm' EXIT
sleep 1

failed=0
# scene, the part of its picture to read (ImageMagick geometry), then the
# captions that part must show
scene() {
  local name=$1 part=$2
  shift 2
  (cd "$out" && "$driver" "$out/$name.png" "$name" >"$out/$name.out")
  # OCR reads small screen text far better at three times the size.
  convert "$out/$name.png" -crop "$part" +repage -resize 300% "$out/$name-large.png"
  # Sparse text: the captions are scattered over the window, not set as a page.
  tesseract "$out/$name-large.png" "$out/$name" --psm 11 >/dev/null 2>&1
  rm "$out/$name-large.png"
  # A caption may wrap inside its control, and OCR is unsure of the width of a
  # space: compare the texts without line breaks and spaces.
  local read
  read=$(tr -d '\n ' <"$out/$name.txt")
  for caption in "$@"; do
    if [[ "$read" != *"${caption// /}"* ]]; then
      echo "$name: \"$caption\" not read whole"
      failed=1
    fi
  done
}

# The main window's captions stand right of the board.
panel=100%x100%+550+0
main=("check position:" "search depth:" "stepNum:" "Black:" "White:")
scene kind3 $panel "${main[@]}" "Computer A(knows B) is running" "A Knows B" "Computer B"
scene kind4 $panel "${main[@]}" "Computer B(knows A) is running" "B Knows A" "Computer A"
scene batch $panel "${main[@]}" "Computer B Know A 3" "Computer A 3" "GameOver!"
scene settings 100%x100% "Black (move first)" "know nothing about the other player" "A knows B" \
  "B knows A" "Situation for computer vs computer" "Two Players" "steps" "Computer A" "User"
scene about 100%x100% "Quintline." "The study room" "Version 3.5" "For the Purpose of studying Game" \
  "Adaptation, also, of course, for fun" "All rights reserved."
scene message 100%x100% "search depth must be a whole number from 1 to 9"

names=$(tr -d '\n' <"$out/message.out")
expected='_NET_WM_NAME(UTF8_STRING) = WM_NAME(STRING) = _NET_WM_VISIBLE_NAME(UTF8_STRING) = '
if [ "$names" != "$expected" ]; then
  echo "message box title: $names"
  failed=1
fi

[ "$failed" = 0 ] && echo "every caption read whole; pictures in $out"
exit "$failed"
