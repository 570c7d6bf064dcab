#pragma once

#include "shop/export.h"

#include <QSharedPointer>

#include <functional>
#include <memory>
#include <typeinfo>

namespace shop {

/// Gives a new object, as a pointer to the type that it was asked for by.
using Maker = std::function<void *()>;

/// Who makes objects of the type of that name, in the whole process; empty: nobody in particular.
SHOP_EXPORT Maker &makerOf(const char *typeName);
/// The one object of the type of that name; null before it was made.
SHOP_EXPORT std::shared_ptr<void> &theOne(const char *typeName);

template <typename T> class MockFactory
{
public:
    static QSharedPointer<T> create()
    {
        const Maker &maker = makerOf(typeid(T).name());
        return maker ? QSharedPointer<T>(static_cast<T *>(maker())) : QSharedPointer<T>::create();
    }
};

template <typename T> class Singleton
{
public:
    static T *instance()
    {
        std::shared_ptr<void> &one = theOne(typeid(T).name());
        if (!one)
            one = std::make_shared<T>();
        return static_cast<T *>(one.get());
    }
};

} // namespace shop
