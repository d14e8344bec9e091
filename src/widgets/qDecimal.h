// Boxes for numbers in which a comma may be typed for the decimal point.
#pragma once

class QLineEdit;

/// Makes each comma that is typed or pasted into Box a point: numbers are read with a point in every country, and what
/// stands behind a comma would be left out of them.
void TakeDecimalComma(QLineEdit& Box);
