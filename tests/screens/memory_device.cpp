// Putting the device together, and looking at pixels.
#include "tests/screens/memory_device.h"

#include "host/outlook/store.h"
#include "host/posix/root_folder.h"
#include "host/posix/store_machine.h"

namespace tavo::memory {

namespace {

files::DeviceRoot OpenRoot(const std::string& folder) {
    posix::RootEnvironment environment;
    environment.TavoHome = folder;
    return posix::OpenDeviceRoot(environment).Root.value();
}

HostOptions OptionsFor(const std::string& folder, disk::IDisk& disk, IProcesses& processes) {
    const files::DeviceRoot root = OpenRoot(folder);
    const auto create = [path = root.StorePath()](ComPtr<IPOutlookApp>& outlook) {
        outlook::StoreOptions options;
        options.DeviceZone = "UTC"; // whatever the zone of the machine that runs the test
        outlook = outlook::CreateOutlookApp(posix::SystemMachine(), path, options);
        return outlook ? Status::Ok : Status::OutOfMemory;
    };
    return {disk, root, processes, create, [] { return ErrorCode::CannotComplete; }};
}

} // namespace

Color Screenshot::At(Point screen) const {
    return Pixels[static_cast<std::size_t>(screen.Y) * kScreenSize.Width + static_cast<std::size_t>(screen.X)];
}

int Screenshot::Count(Color color, const Rect& within) const {
    int count = 0;
    for (int y = within.Top; y < within.Bottom; ++y) {
        for (int x = within.Left; x < within.Right; ++x) {
            count += At({x, y}) == color ? 1 : 0;
        }
    }
    return count;
}

int Screenshot::CountDifferences(const Screenshot& other) const {
    int count = 0;
    for (std::size_t pixel = 0; pixel < Pixels.size(); ++pixel) {
        count += Pixels[pixel] == other.Pixels[pixel] ? 0 : 1;
    }
    return count;
}

MemoryDevice::MemoryDevice()
    : Time({2004, 11, 3, 17, 10, 0, 0, 0}, [this] { Host.Queue().PostQuitMessage(kScriptEnded); }),
      Host(OptionsFor(Folder.Path(), Disk, Programs), Time, Time.Clock) {
    Time.SetWaited([this] {
        Programs.StartWaiting();
        return Host.PrepareWait();
    });
}

void MemoryDevice::Tap(const Rect& place) {
    Host.Touch.Tap({(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2});
}

void MemoryDevice::TapRow(int number) {
    if (const Rect place = Host.Popup.PlaceOf(number); !place.IsEmpty()) {
        Tap(place);
    }
}

Screenshot MemoryDevice::Look() {
    const Canvas canvas = Host.Paint();
    cairo_surface_t* picture = canvas.Pixels();
    cairo_surface_flush(picture);
    const int scale = cairo_image_surface_get_width(picture) / kScreenSize.Width;
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(picture);
    Screenshot shot;
    for (int y = 0; y < kScreenSize.Height; ++y) {
        const unsigned char* pixel = cairo_image_surface_get_data(picture) + stride * y * scale;
        for (int x = 0; x < kScreenSize.Width; ++x, pixel += std::ptrdiff_t{4} * scale) {
            shot.Pixels.push_back(Color::FromRgb(pixel[2], pixel[1], pixel[0]));
        }
    }
    return shot;
}

std::optional<PaintedItem> MemoryDevice::FindItem(PaintedRole role, std::u16string_view beginning) {
    for (const WindowHandle window : Host.State.Tree.AllParentsFirst()) {
        const bare::PaintedFrame* frame = Host.Drawing().FindFrame(window);
        if (frame == nullptr || !Host.State.Tree.IsVisible(window)) {
            continue;
        }
        for (PaintedItem item : frame->Items) {
            if (item.Role == role && item.Name.starts_with(beginning)) {
                const Rect place = Host.State.Tree.ScreenBounds(window);
                item.Bounds = Rect::FromSize(place.Left + item.Bounds.Left, place.Top + item.Bounds.Top,
                                             item.Bounds.Width(), item.Bounds.Height());
                return item;
            }
        }
    }
    return std::nullopt;
}

bool MemoryDevice::SaveScreen(const std::string& png) {
    return cairo_surface_write_to_png(Host.Paint().Pixels(), png.c_str()) == CAIRO_STATUS_SUCCESS;
}

} // namespace tavo::memory
