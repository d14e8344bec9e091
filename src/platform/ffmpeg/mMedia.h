// Video files for a program: clips to show, and pictures as files.
#pragma once

#include "platform/iMedia.h"

#include <optional>
#include <string>

/// A clip that can be opened.
std::unique_ptr<iMedia> MakeMedia();

/// The picture as a file in the format PNG; nothing when it cannot be made.
std::optional<std::string> AsPng(const Picture& Shown);
