#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QDateTime>
#include <QLatin1String>
#include <QString>

#include <string>

/// Writes JSON piece by piece, byte for byte what `QJsonDocument` would write indented, without
/// building the whole in memory first: a document is written at each step of a sale.
///
/// The caller sees to it that the pieces make a whole and that the names in an object ascend.
class POSHOST_EXPORT JsonWriter
{
public:
    JsonWriter();

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// Begins a member; its value comes next.
    void key(QLatin1String name);
    void key(const QString &name);

    void null();
    void value(bool flag);
    void value(int number);
    /// A number where one comes back as the very same bits, otherwise (infinities, "not a number",
    /// minus zero) a text of its bits: "0x7ff0000000000000".
    void value(double number);
    void value(const QString &text);
    /// ISO 8601 with milliseconds; null for an invalid one. Local times stay local ones.
    void value(const QDateTime &time);
    /// Pointers are no flags.
    template <typename T> void value(T *) = delete;

    template <typename T> void member(QLatin1String name, const T &memberValue)
    {
        key(name);
        value(memberValue);
    }

    /// The whole; only when everything that was begun has ended.
    [[nodiscard]] QByteArray written() const;

private:
    void begin(char bracket);
    void end(char bracket);
    void place();
    void indent();
    void quote(QStringView text);

    std::string m_bytes; ///< a QByteArray calls out for each append
    std::size_t m_depth = 0;
    bool m_isFirst = true; ///< in what was begun last
    bool m_hasKey = false; ///< what comes next is a member's value
};
