#pragma once

#include <QTranslator>

namespace till {

/// Translates ids. One that ends in a number has the text of its own entry, otherwise that of the
/// entry whose id ends in "%1" instead, with the number in place of its "%1".
class IdTranslator : public QTranslator
{
public:
    [[nodiscard]] QString translate(
        const char *context, const char *id, const char *disambiguation, int count) const override;
};

} // namespace till
