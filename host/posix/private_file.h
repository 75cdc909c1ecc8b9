// Making files so that nobody else decides where they come to lie.
#pragma once

#include "host/disk/disk.h"
#include "host/posix/file_descriptor.h"

#include <string>

namespace tavo::posix {

// Whether others could put files into a folder, or change what lies in it.
enum class FolderKeeping {
    Ours,           // belongs to who runs this, and nobody else may write to it; others may look
    OfSomebodyElse, // also of the system's administrator, when somebody else runs this
    OpenToOthers,   // the group's members or everybody may write, with or without the sticky bit
    Missing,        // there is none, or it cannot be looked at: errno tells
};

FolderKeeping LookAtFolder(const std::string& path);
FolderKeeping LookAtFolder(const FileDescriptor& folder);

// The folder of a path: "." where it names none.
std::string FolderOf(const std::string& path);

// Holds nothing when there is no such folder; errno tells why. So do the next three.
FileDescriptor OpenFolder(const std::string& path);

// A new file in the folder, 0600, open for reading and writing. Never through a link, never one that is there: EEXIST.
FileDescriptor MakeFile(const FileDescriptor& folder, const std::string& name);

// A new file under an unfinished file's name with this ending; RemoveUnfinished knows it.
FileDescriptor MakeUnfinished(const FileDescriptor& folder, std::string& name, const std::string& ending = {});

// A file that lasts and only carries a lock: opened, or made as above. Not through a link (ELOOP), and nothing but a
// regular file.
FileDescriptor OpenOrMakeFile(const std::string& path);

} // namespace tavo::posix
