// The program's vector pictures, rendered once for every scale they are shown at.
#pragma once

#include "host/qt/scale.h"
#include "platform/geometry.h"

#include <QImage>
#include <QSvgRenderer>

#include <map>
#include <memory>
#include <tuple>

namespace tavo::qt {

class Pictures {
  public:
    // The part `source` of a picture at a size in real pixels; empty when there is no such picture. Stays valid until
    // the next call.
    const QImage& Render(int bitmap, const Rect& source, QSize size);

    // The size of a picture in logical pixels; empty when there is none.
    QSize SizeOf(int bitmap);

    // Drops what was rendered; asked for when the scale changes.
    void DropRendered() { Rendered.clear(); }

  private:
    using Key = std::tuple<int, int, int, int, int, int, int>;

    QSvgRenderer* Load(int bitmap);

    std::map<int, std::unique_ptr<QSvgRenderer>> Loaded;
    std::map<Key, QImage> Rendered;
};

} // namespace tavo::qt
