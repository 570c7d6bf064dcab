#pragma once

#include "shop/export.h"

#include <QString>
#include <QVariant>

#include <exception>
#include <functional>

namespace tr {

/// The texts of this host are spoken in one language only.
class SHOP_EXPORT Tr
{
public:
    Tr() = default;
    Tr(const QString &, const QString &text)
        : m_text(text)
    { }

    Tr arg(const QString &argument) const;
    const QString &ru() const { return m_text; }
    const QString &ui() const { return m_text; }
    operator QVariant() const { return m_text; }

private:
    QString m_text;
};

inline const QString undefined;

} // namespace tr

namespace shop {

class SHOP_EXPORT BasicException : public std::exception
{
public:
    explicit BasicException(tr::Tr message);

    const ::tr::Tr &tr() const { return m_message; }
    bool flag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

private:
    ::tr::Tr m_message;
    bool m_flag = false;
};

struct SHOP_EXPORT Finally
{
    std::function<void()> action;

    explicit Finally(std::function<void()> action);
    ~Finally();
};

} // namespace shop
