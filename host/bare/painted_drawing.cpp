// The program's calls as pieces.
#include "host/bare/painted_drawing.h"

#include "host/shell/straight_line.h"

#include <algorithm>
#include <cmath>

namespace tavo::bare {

namespace {

constexpr int kPixelsPerInch = 96;

shell::Spot SpotOf(Point point) {
    return {static_cast<double>(point.X), static_cast<double>(point.Y)};
}

// A surface of the program's, on a canvas.
class PaintedSurface final : public ISurface {
  public:
    PaintedSurface(Size size, std::unique_ptr<ICanvas> canvas, PaintedDrawing& drawing)
        : Extent(size), Drawn(std::move(canvas)), Drawing(drawing) {}

    Size GetSize() const override { return Extent; }

    const ICanvas& Canvas() const { return *Drawn; }

    void FillRect(const Rect& area, Color color) override { Paint(shell::FillPiece{area, ink::ToPixel(color)}); }

    void DrawLine(Point from, Point to, const Pen& pen) override {
        const int width = std::max(pen.Width, 1);
        if (from.X == to.X || from.Y == to.Y) {
            FillRect(shell::CoverStraightLine(from, to, width), pen.Ink);
        } else {
            Paint(shell::LinePiece{SpotOf(from), SpotOf(to), static_cast<double>(width), ink::ToPixel(pen.Ink)});
        }
    }

    void DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) override {
        if (shell::ITextFace* face = Drawing.FindFace(style.Font); face != nullptr) {
            for (const shell::PlacedLine& line : shell::PlaceText(*face, text, area, style.Format)) {
                Drawn->Write(*face, line, area, ink::ToPixel(style.Ink));
            }
        }
    }

    void DrawBitmap(int bitmap, Point at, const Rect& source) override {
        Paint(shell::PicturePiece{bitmap, at, source});
    }

  private:
    void Paint(const shell::Piece& piece) { Drawing.PaintPieces(*Drawn, {piece}); }

    Size Extent;
    std::unique_ptr<ICanvas> Drawn;
    PaintedDrawing& Drawing;
};

// One piece after the other, by its kind.
class PiecePainter {
  public:
    PiecePainter(ICanvas& canvas, shell::IChromeFonts& fonts) : Canvas(canvas), Fonts(fonts) {}

    void operator()(const shell::FillPiece& piece) { Canvas.Fill({piece.Area, 0, piece.Ink}); }

    void operator()(const shell::RoundedFillPiece& piece) { Canvas.Fill(piece); }

    void operator()(const shell::FramePiece& piece) { Canvas.Frame(piece); }

    void operator()(const shell::LinePiece& piece) { Canvas.Polygon({{piece.From, piece.To}, piece.Width, piece.Ink}); }

    void operator()(const shell::PolygonPiece& piece) { Canvas.Polygon(piece); }

    void operator()(const shell::TextPiece& piece) {
        for (const shell::PlacedLine& line : piece.Lines) {
            Canvas.Write(Fonts.Find(piece.Font), line, piece.Area, piece.Ink);
        }
    }

    void operator()(const shell::PicturePiece& piece) { Canvas.Picture(piece); }

  private:
    ICanvas& Canvas;
    shell::IChromeFonts& Fonts;
};

} // namespace

int PaintedDrawing::LogicalPixelsPerInch() {
    return kPixelsPerInch;
}

FontHandle PaintedDrawing::CreateFontIndirectW(const LogFont& font) {
    const FontHandle handle{++LastFace};
    Faces[handle] = Kit.MakeFace(font);
    return handle;
}

shell::ITextFace* PaintedDrawing::FindFace(FontHandle font) const {
    const auto found = Faces.find(font);
    return found == Faces.end() ? nullptr : found->second.get();
}

shell::ITextFace& PaintedDrawing::Find(shell::ChromeFont font) {
    const auto number = static_cast<std::size_t>(font);
    const shell::ChromeFontSize& size = shell::kChromeFontSizes[number];
    if (ChromeFaces[number] == nullptr) {
        ChromeFaces[number] = Kit.MakeFace({shell::kChromeFace, size.Height, 0, size.Weight});
    }
    return *ChromeFaces[number];
}

void PaintedDrawing::GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) {
    widths.assign(text.size(), 0);
    if (shell::ITextFace* face = FindFace(font); face != nullptr) {
        const std::vector<double>& ends = face->Ends(text);
        std::transform(ends.begin(), ends.end(), widths.begin(),
                       [](double end) { return static_cast<int>(std::lround(end)); });
    }
}

std::unique_ptr<ISurface> PaintedDrawing::CreateCompatibleSurface(Size size) {
    return std::make_unique<PaintedSurface>(size, Kit.MakeCanvas(size), *this);
}

void PaintedDrawing::Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) {
    const auto& painted = static_cast<const PaintedSurface&>(surface); // nobody else makes any
    PaintedFrame& frame = Frames[window];
    frame.Shown = Kit.MakeCanvas(painted.GetSize());
    frame.Shown->Put(painted.Canvas(), Rect::Whole(painted.GetSize()));
    frame.Items.assign(items.begin(), items.end());
}

const PaintedFrame* PaintedDrawing::FindFrame(WindowHandle window) const {
    const auto found = Frames.find(window);
    return found == Frames.end() ? nullptr : &found->second;
}

void PaintedDrawing::PaintPieces(ICanvas& canvas, const shell::Pieces& pieces) {
    PiecePainter pieceByPiece(canvas, *this);
    for (const shell::Piece& piece : pieces) {
        std::visit(pieceByPiece, piece);
    }
}

void PaintedDrawing::PaintInk(ICanvas& canvas, WindowHandle paper, ink::InkControl& control, const Rect& area) {
    const double scale = Kit.PixelsPerPixel();
    const auto edge = [scale](int logical) { return static_cast<int>(std::lround(logical * scale)); };
    ink::InkCanvas& shown = Papers[paper];
    shown.Resize(edge(area.Right) - edge(area.Left), edge(area.Bottom) - edge(area.Top), scale);
    static_cast<void>(shown.Update(control)); // all of it is shown, whatever changed
    canvas.Put(shown.Shown(), area);
}

void PaintedDrawing::Forget(WindowHandle window) {
    Frames.erase(window);
    Papers.erase(window);
}

} // namespace tavo::bare
