#include "host/printing/textprinter.h"

template class MockFactory<TextPrinter>;

TextPrinter::~TextPrinter() = default;

void TextPrinter::print(
    const QString &, const QString &, const QMap<QString, QVariant> &, int, bool)
{ }
