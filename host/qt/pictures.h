// The program's vector pictures, rendered once for every scale they are shown at.
#pragma once

#include "host/qt/scale.h"
#include "platform/geometry.h"

#include <QImage>
#include <QSvgRenderer>

#include <future>
#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>

namespace tavo::qt {

class Pictures {
  public:
    // The part `source` of a picture at a size in real pixels; empty when there is no such picture. Stays valid until
    // the next call.
    const QImage& Render(int bitmap, const Rect& source, QSize size);

    // Has it rendered on another thread, one after the other, for a call of Render that comes soon.
    void Begin(int bitmap, const Rect& source, QSize size);

    // Whether Render may have to wait for that thread.
    bool HasBegun() const { return !Begun.empty(); }

    bool Has(int bitmap);

    // Drops what was rendered; asked for when the scale changes.
    void DropRendered() { Rendered.clear(); }

  private:
    using Key = std::tuple<int, int, int, int, int, int, int>;

    static Key KeyOf(int bitmap, const Rect& source, QSize size);
    QSvgRenderer* Load(int bitmap);

    std::unordered_map<int, bool> Present; // asked for with each picture that is drawn
    std::map<int, std::unique_ptr<QSvgRenderer>> Loaded;
    std::map<Key, QImage> Rendered;
    std::map<Key, std::shared_future<QImage>> Begun;
    std::shared_future<QImage> LastBegun;
};

} // namespace tavo::qt
