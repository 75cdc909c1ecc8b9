// Where the rules of time zones come from.
#pragma once

#include <optional>
#include <string>

namespace tavo::rules {

// A machine's time zone database and the zone that it is set to.
class IZoneSource {
  public:
    virtual ~IZoneSource() = default;

    // The bytes of the compiled file of this zone; nothing when there is none. Names are plain (see LoadZone), but may
    // still be those of files and folders that are no zones.
    virtual std::optional<std::string> ReadZone(const std::string& name) = 0;
    // The name of the zone that the machine is set to; "" when that cannot be told. Perhaps of none that is there.
    virtual std::string GetDeviceZone() = 0;
    // The release of the database; "" when it does not say.
    virtual std::string GetRelease() = 0;
};

} // namespace tavo::rules
