#pragma once

#include <QString>

namespace platform {

// Whether the files of a folder live on this machine, or on another one that other machines write to as well. What
// can't be told counts as Local; a file system that a program provides (FUSE) counts as Network.
enum class FileSystemKind { Local, Network };

FileSystemKind fileSystemKind(const QString& folder);

}  // namespace platform
