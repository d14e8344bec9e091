// A report as a file: PDF, SVG or PNG.
#pragma once

#include "views/report/cReportPage.h"

#include <string>

class QPainter;

/// Draws a page of the report with a painter whose device is Width wide.
void PaintReportPage(QPainter& Painter, cReportPage& Report, int Page, double Width);

/// Writes the report whole or not at all, in the form that the name of the file ends with: .pdf and .svg hold lines and
/// letters, .png dots. The same report gives the same bytes. False when it fails (reported to the user).
bool WriteReportFile(const cReport& Report, const std::string& Path);

/// The same for a program without windows.
bool WriteReportOffscreen(const cReport& Report, const std::string& Path);
