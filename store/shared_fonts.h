// The fonts that all pages share.
#pragma once

#include "platform/drawing.h"

namespace tavo {

// Makes the fonts when it is built and gives them back when it ends.
class SharedFonts {
  public:
    explicit SharedFonts(IDrawing& drawing);
    ~SharedFonts();
    SharedFonts(const SharedFonts&) = delete;
    SharedFonts& operator=(const SharedFonts&) = delete;

    FontHandle FontArial11Bold = FontHandle::None;
    FontHandle FontArial9Bold = FontHandle::None;
    FontHandle FontArial10Bold = FontHandle::None;
    FontHandle FontArial10 = FontHandle::None;
    FontHandle FontArial7 = FontHandle::None;
    FontHandle FontComic13Bold = FontHandle::None; // page headers
    FontHandle FontComicHuge = FontHandle::None;   // digital clock
    FontHandle FontComic20 = FontHandle::None;     // its seconds

  private:
    IDrawing& Drawing;
};

} // namespace tavo
