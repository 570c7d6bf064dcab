#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <ostream>

// Readable values in the reports of failed tests; found by GoogleTest through the types' namespace.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << (text.isNull() ? "(null)" : '"' + text.toStdString() + '"');
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}

inline void PrintTo(const QStringList &texts, std::ostream *out)
{
    *out << '[';
    for (const QString &text : texts)
        *out << '"' << text.toStdString() << "\" ";
    *out << ']';
}

inline void PrintTo(const QVariant &value, std::ostream *out)
{
    *out << (value.typeName() ? value.typeName() : "invalid") << ' '
         << value.toString().toStdString();
}
