// The validator that replaces commas.
#include "widgets/qDecimal.h"

#include <QLineEdit>
#include <QValidator>

namespace {
class CommaToPoint : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& Text, int& /*Cursor*/) const override
    {
        Text.replace(',', '.');
        return Acceptable;
    }
};
} // namespace

void TakeDecimalComma(QLineEdit& Box)
{
    Box.setValidator(new CommaToPoint(&Box));
}
