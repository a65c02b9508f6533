#!/bin/sh
# Makes the bitmaps and the icons of the program and its files from the drawings beside them.
# Needs rsvg-convert and ImageMagick. The same drawings give the same bytes.
set -e

cd "$(dirname "$0")/pictures"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Renders $1.svg as a square of $2 pixels into $3.
render() {
  rsvg-convert --width "$2" --height "$2" --output "$3" "$1.svg"
}

# Makes the plain 24-bit bitmap that a resource script takes.
make_bitmap() {
  render "$1" "$2" "$work/$1.png"
  convert "$work/$1.png" -background white -flatten -alpha off -strip -type TrueColor \
    -define bmp:format=bmp3 "BMP3:$1.bmp"
}

for drawing in icon_*.svg; do
  make_bitmap "${drawing%.svg}" 64
done
for drawing in symbol*.svg; do
  make_bitmap "${drawing%.svg}" 24
done

for icon in program document template; do
  for size in 16 32 48 256; do
    render $icon $size "$work/$size.png"
  done
  convert "$work/16.png" "$work/32.png" "$work/48.png" "$work/256.png" -strip \
    -define png:exclude-chunks=date,time $icon.ico
done

# The strip at the left of the setup's first and last page.
render program 128 "$work/128.png"
convert -size 164x314 xc:'#e6f2ef' "$work/128.png" -gravity center -composite -alpha off -strip \
  -type TrueColor -define bmp:format=bmp3 BMP3:setup.bmp
