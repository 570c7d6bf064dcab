#pragma once

#include <QSharedPointer>

#include <functional>
#include <utility>

/// Makes the objects that host and plug-ins use once and throw away: a fresh one at each call.
///
/// The maker of one type can be replaced, by the till for its dialogs and by tests for doubles. For
/// the host's own types the instantiations live in the host's library, so that a replacement made
/// in the program is seen by the plug-in. To be called from the host's thread only.
template <typename T> class MockFactory
{
public:
    using Creator = std::function<QSharedPointer<T>()>;

    /// A new object, owned by the caller; never null unless a replaced maker gives null.
    static QSharedPointer<T> create()
    {
        return s_creator ? s_creator() : QSharedPointer<T>::create();
    }
    /// Replaces the maker; an empty function brings the default constructor back.
    static void setCreator(Creator creator) { s_creator = std::move(creator); }

private:
    static Creator s_creator;
};

template <typename T> typename MockFactory<T>::Creator MockFactory<T>::s_creator;
