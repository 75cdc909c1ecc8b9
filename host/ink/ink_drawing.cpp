// A line for each stroke; one that was pressed unevenly is a line for each part of it.
#include "host/ink/ink_drawing.h"

#include "host/ink/codec.h"
#include "host/ink/stroke.h"

#include <algorithm>
#include <cstdio>

namespace tavo::ink {
namespace {

constexpr int kMargin = 2 * kTicksPerPixel;

std::string ToPixels(double ticks) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", ticks / kTicksPerPixel);
    return text;
}

class Drawing {
  public:
    explicit Drawing(std::span<const PlacedStroke> strokes) {
        bool isFirst = true;
        for (const PlacedStroke& stroke : strokes) {
            for (const InkPoint& point : stroke.Body->Points) {
                const int x = point.X + stroke.Right;
                const int y = point.Y + stroke.Down;
                Left = isFirst ? x : std::min(Left, x);
                Top = isFirst ? y : std::min(Top, y);
                Right = isFirst ? x : std::max(Right, x);
                Bottom = isFirst ? y : std::max(Bottom, y);
                isFirst = false;
            }
        }
        Left -= kMargin;
        Top -= kMargin;
    }

    std::string Draw(std::span<const PlacedStroke> strokes) {
        const std::string size = ToPixels(Right + kMargin - Left) + "\" height=\"" + ToPixels(Bottom + kMargin - Top);
        Text = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size +
               "\"><g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">";
        for (const PlacedStroke& stroke : strokes) {
            DrawStroke(stroke);
        }
        return Text + "</g></svg>";
    }

  private:
    void DrawStroke(const PlacedStroke& stroke) {
        const std::vector<InkPoint>& points = stroke.Body->Points;
        const Pen& pen = stroke.Body->Tool;
        if (points.empty()) {
            return;
        }
        if (!pen.HasPressure) {
            Begin(pen, kMaxPressure);
            for (std::size_t index = 0; index < points.size(); ++index) {
                AddPoint(index == 0 ? 'M' : 'L', points[index], stroke);
            }
            End(points.size() == 1);
            return;
        }
        for (std::size_t index = 0; index + 1 < std::max<std::size_t>(points.size(), 2); ++index) {
            const InkPoint& next = points[std::min(index + 1, points.size() - 1)];
            Begin(pen, (points[index].Pressure + next.Pressure) / 2);
            AddPoint('M', points[index], stroke);
            AddPoint('L', next, stroke);
            End(false);
        }
    }

    void Begin(const Pen& pen, int pressure) {
        const Color color = kPenColors[static_cast<std::size_t>(pen.Color)];
        char start[96];
        std::snprintf(start, sizeof start, "<path stroke=\"#%02x%02x%02x\" stroke-width=\"%.2f\" d=\"",
                      static_cast<unsigned>(color.Red()), static_cast<unsigned>(color.Green()),
                      static_cast<unsigned>(color.Blue()), WidthAt(pen, pressure));
        Text += start;
    }

    void AddPoint(char how, const InkPoint& point, const PlacedStroke& stroke) {
        Text += how + ToPixels(point.X + stroke.Right - Left) + " " + ToPixels(point.Y + stroke.Down - Top);
    }

    void End(bool isDot) { Text += isDot ? "h0\"/>" : "\"/>"; }

    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    std::string Text;
};

} // namespace

std::string DrawAsSvg(std::span<const std::uint8_t> bytes) {
    std::vector<PlacedStroke> strokes;
    return Decode(bytes, strokes) == Reading::Whole ? Drawing(strokes).Draw(strokes) : std::string();
}

} // namespace tavo::ink
