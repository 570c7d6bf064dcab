#pragma once

#include <QSharedPointer>

#include <utility>

/// The one object of its type in the process, made with the default constructor on first use.
///
/// For the host's own types the instantiations live in the host's library, so that program and
/// plug-ins share them. To be called from the host's thread only.
template <typename T> class Singleton
{
public:
    /// Never null; owned here, valid until `set` or `reset`.
    static T *instance()
    {
        if (!s_instance)
            s_instance = QSharedPointer<T>::create();
        return s_instance.data();
    }
    /// Puts an object in place, a subclass for instance; the one before is released.
    static void set(QSharedPointer<T> instance) { s_instance = std::move(instance); }
    /// Releases the object; the next use makes a new one.
    static void reset() { s_instance.reset(); }

private:
    static QSharedPointer<T> s_instance;
};

template <typename T> QSharedPointer<T> Singleton<T>::s_instance;
