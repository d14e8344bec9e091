// Boxes for numbers in which a comma may be typed for the decimal point.
#pragma once

class QLineEdit;

/// Makes each comma that is typed or pasted into Box a point: numbers are read with a decimal point in every country,
/// and what follows a comma would be ignored.
void TakeDecimalComma(QLineEdit& Box);
