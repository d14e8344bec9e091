// The look of the program: style, colours and spacing, the same on every desktop.
#pragma once

/// Sets style, palette and style sheet of the running application.
void SetLook();
