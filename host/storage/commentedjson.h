#pragma once

#include "host/export.h"
#include "host/framework/spokenerror.h"

#include <QByteArray>
#include <QJsonValue>

/// JSON in files that people write by hand, with comments between slashes and stars or behind two
/// slashes.
namespace commentedjson {

/// More levels than any such file has: a value is copied and written by recursion.
constexpr int mostLevels = 100;

/// Why a text cannot be read; `what()` is the Russian reason.
class POSHOST_EXPORT Error : public SpokenError
{
public:
    Error(QString place, const tr::Tr &reason);
    ~Error() override;

    /// The file's name with line and column, both from 1, as "shop.json:3:7"; without them where
    /// they are not known.
    [[nodiscard]] QString placeIn(const QString &fileName) const;

private:
    QString m_place; // "3:7" or empty
};

/// @throws Error
[[nodiscard]] POSHOST_EXPORT QJsonValue parse(const QByteArray &contents);

} // namespace commentedjson
