// The way to performance monitors on USB, where the program was built with one.
#pragma once

#include "platform/iMonitor.h"

#include <memory>

/// Null in a program that was built without hidapi.
std::unique_ptr<iMonitor> MakeUsbMonitor();
