// Tells what a host lacks that the plug-in calls. One source file, to be compiled against the
// host's headers:
//
//   c++ -std=c++20 -fPIC $(pkg-config --cflags Qt6Core Qt6Xml) -I HOST -o host-conformance
//   host-conformance.cpp
//
// Headers of other names come in by one that includes them all: -DHOST_HEADERS='"myhost.h"'. The
// program compiles whatever is missing, as long as the headers themselves do. It prints one line
// for each operation, only what is wrong with --wrong, or the table of docs/host-interface.md with
// --markdown, and ends with 1 when anything is missing or has another signature. In that table the
// expected text is what counts: arguments and results may be of any type that converts.
//
// The classes are expected in the global namespace, as classes or by a using-declaration; the
// namespaces named below are expected to be namespaces.

#ifdef HOST_HEADERS
#include HOST_HEADERS
#else
#if __has_include("host/config/config.h")
#include "host/config/config.h"
#endif
#if __has_include("host/dialogs/dialog.h")
#include "host/dialogs/dialog.h"
#endif
#if __has_include("host/documents/abstractdocument.h")
#include "host/documents/abstractdocument.h"
#endif
#if __has_include("host/documents/discountlogic.h")
#include "host/documents/discountlogic.h"
#endif
#if __has_include("host/documents/documentfactory.h")
#include "host/documents/documentfactory.h"
#endif
#if __has_include("host/documents/documentlogic.h")
#include "host/documents/documentlogic.h"
#endif
#if __has_include("host/documents/money.h")
#include "host/documents/money.h"
#endif
#if __has_include("host/framework/action.h")
#include "host/framework/action.h"
#endif
#if __has_include("host/framework/actiontrigger.h")
#include "host/framework/actiontrigger.h"
#endif
#if __has_include("host/framework/activitynotifier.h")
#include "host/framework/activitynotifier.h"
#endif
#if __has_include("host/framework/baseactivitylistener.h")
#include "host/framework/baseactivitylistener.h"
#endif
#if __has_include("host/framework/basicexception.h")
#include "host/framework/basicexception.h"
#endif
#if __has_include("host/framework/basicloyaltysystem.h")
#include "host/framework/basicloyaltysystem.h"
#endif
#if __has_include("host/framework/currenttime.h")
#include "host/framework/currenttime.h"
#endif
#if __has_include("host/framework/documentwatcher.h")
#include "host/framework/documentwatcher.h"
#endif
#if __has_include("host/framework/event.h")
#include "host/framework/event.h"
#endif
#if __has_include("host/framework/finally.h")
#include "host/framework/finally.h"
#endif
#if __has_include("host/framework/mockfactory.h")
#include "host/framework/mockfactory.h"
#endif
#if __has_include("host/framework/singleton.h")
#include "host/framework/singleton.h"
#endif
#if __has_include("host/framework/tr.h")
#include "host/framework/tr.h"
#endif
#if __has_include("host/net/restclient.h")
#include "host/net/restclient.h"
#endif
#if __has_include("host/printing/textprinter.h")
#include "host/printing/textprinter.h"
#endif
#if __has_include("host/queue/dbqueuebroker.h")
#include "host/queue/dbqueuebroker.h"
#endif
#if __has_include("host/storage/savetofilelogic.h")
#include "host/storage/savetofilelogic.h"
#endif
#if __has_include("host/text/simpleformatter.h")
#include "host/text/simpleformatter.h"
#endif
#if __has_include("host/xml/xmlutils.h")
#include "host/xml/xmlutils.h"
#endif
#endif
#if __has_include(<log4qt/logger.h>)
#include <log4qt/logger.h>
#endif
#if __has_include(<log4qt/logmanager.h>)
#include <log4qt/logmanager.h>
#endif

#include <QByteArray>
#include <QDateTime>
#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// What stands for a name that the host does not declare. "::Name" means the host's where there is
// one, since a name that is declared in a namespace itself goes before what a using-directive
// brings into it.
#define ABSENT_CLASS(name)                                                                         \
    namespace absent {                                                                             \
    class name;                                                                                    \
    }                                                                                              \
    using namespace absent;
#define ABSENT_ENUMERATION(name)                                                                   \
    namespace absent {                                                                             \
    enum class name : int;                                                                         \
    }                                                                                              \
    using namespace absent;
#define ABSENT_TEMPLATE(name)                                                                      \
    namespace absent {                                                                             \
    template <typename T> class name;                                                              \
    }                                                                                              \
    using namespace absent;
// The name of something that is neither: what it is used as tells that it is not the host's.
struct NotThere
{ };
#define ABSENT_FUNCTION(name)                                                                      \
    namespace absent {                                                                             \
    void name(const NotThere &);                                                                   \
    }                                                                                              \
    using namespace absent;
#define ABSENT_CONSTANT(name)                                                                      \
    namespace absent {                                                                             \
    inline constexpr NotThere name{};                                                              \
    }                                                                                              \
    using namespace absent;

ABSENT_CLASS(AbstractDocument)
ABSENT_CLASS(ActionTrigger)
ABSENT_CLASS(ActivityNotifier)
ABSENT_CLASS(BaseActivityListener)
ABSENT_CLASS(BasicException)
ABSENT_CLASS(BasicLoyaltySystem)
ABSENT_CLASS(BasicPlugin)
ABSENT_CLASS(BonusImpact)
ABSENT_CLASS(Card)
ABSENT_CLASS(CardGroup)
ABSENT_CLASS(Client)
ABSENT_CLASS(Config)
ABSENT_CLASS(Coupon)
ABSENT_CLASS(CurrentTime)
ABSENT_CLASS(DBQueueBroker)
ABSENT_CLASS(Dialog)
ABSENT_CLASS(DiscountImpact)
ABSENT_CLASS(DiscountLogic)
ABSENT_CLASS(DocumentBonusRecord)
ABSENT_CLASS(DocumentCardRecord)
ABSENT_CLASS(DocumentFactory)
ABSENT_CLASS(DocumentImpactDetail)
ABSENT_CLASS(DocumentLogic)
ABSENT_CLASS(DocumentWatcher)
ABSENT_CLASS(Event)
ABSENT_CLASS(Finally)
ABSENT_CLASS(GoodsItem)
ABSENT_CLASS(InputTextFormParameters)
ABSENT_CLASS(ModifiersContainer)
ABSENT_CLASS(Quantity)
ABSENT_CLASS(RestClient)
ABSENT_CLASS(SaveToFileLogic)
ABSENT_CLASS(SimpleFormatter)
ABSENT_CLASS(TextPrinter)
ABSENT_CLASS(Tmc)
ABSENT_CLASS(TmcIndexPrice)
ABSENT_CLASS(TmcUnit)
ABSENT_ENUMERATION(ClientOptions)
ABSENT_ENUMERATION(ECardMode)
ABSENT_ENUMERATION(ECardNumberType)
ABSENT_ENUMERATION(EDialogDuration)
ABSENT_ENUMERATION(EDialogKind)
ABSENT_ENUMERATION(EDiscountProcessing)
ABSENT_ENUMERATION(EDocumentType)
ABSENT_ENUMERATION(EOperationKind)
ABSENT_ENUMERATION(LoyaltySystemOption)
ABSENT_TEMPLATE(MockFactory)
ABSENT_TEMPLATE(Singleton)

namespace control {
ABSENT_CLASS(Action)
ABSENT_ENUMERATION(EActionType)
} // namespace control
namespace EActivityListener {
ABSENT_ENUMERATION(Event)
} // namespace EActivityListener
namespace EContext {
ABSENT_ENUMERATION(Code)
ABSENT_ENUMERATION(Result)
} // namespace EContext
namespace EImpactSource {
ABSENT_ENUMERATION(source)
} // namespace EImpactSource
namespace EDiscountObject {
ABSENT_ENUMERATION(type)
} // namespace EDiscountObject
namespace EDiscountMode {
ABSENT_ENUMERATION(type)
} // namespace EDiscountMode
namespace EDiscountType {
ABSENT_ENUMERATION(type)
} // namespace EDiscountType
namespace modifiers {
ABSENT_ENUMERATION(Type)
} // namespace modifiers
namespace tr {
ABSENT_CLASS(Tr)
ABSENT_CONSTANT(undefined)
} // namespace tr
namespace Log4Qt {
ABSENT_CLASS(Logger)
ABSENT_CLASS(LogManager)
} // namespace Log4Qt
namespace money {
ABSENT_FUNCTION(counts)
ABSENT_FUNCTION(equal)
ABSENT_CONSTANT(tolerance)
} // namespace money
namespace xmlutils {
ABSENT_FUNCTION(appendNotNull)
ABSENT_FUNCTION(createTextElement)
ABSENT_FUNCTION(getValueByTag)
} // namespace xmlutils

namespace {

using Document = QSharedPointer<::AbstractDocument>;
using CardRecord = QSharedPointer<::DocumentCardRecord>;
using Values = QMap<QString, QVariant>;

enum class Finding
{
    Present,
    Missing,
    OtherSignature
};

struct Operation
{
    std::string owner; ///< class or namespace
    std::string name;
    std::string expected;
    Finding finding;
};

std::vector<Operation> &operations()
{
    static std::vector<Operation> all;
    return all;
}

template <typename Result, typename Wanted>
concept Gives = std::is_convertible_v<Result, Wanted>;
// What is overridden must be the same type, not one that converts.
template <typename Result, typename Wanted>
concept Is = std::is_same_v<std::remove_cvref_t<Result>, Wanted>;

template <typename T, typename = void> inline constexpr bool isDeclared = false;
template <typename T> inline constexpr bool isDeclared<T, std::void_t<decltype(sizeof(T))>> = true;

template <typename T> T &&of() noexcept;
// The same for a function of a namespace, whose call must not be looked at before it is asked for.
template <typename Dependent, typename T> T &&late() noexcept;

Finding findingOf(bool fits, bool isNamed)
{
    if (fits)
        return Finding::Present;
    return isNamed ? Finding::OtherSignature : Finding::Missing;
}

// A class of the host is asked only when it is declared: nothing can be derived from one that is
// not.
template <typename Check, typename T> Finding lookInto()
{
    if constexpr (!isDeclared<T>)
        return Finding::Missing;
    else if constexpr (Check::template Fit<T>::fits())
        return Finding::Present;
    else
        return findingOf(false, Check::template isNamed<T>());
}

bool add(const char *owner, const char *name, const char *expected, Finding finding)
{
    operations().push_back({owner, name, expected, finding});
    return true;
}

} // namespace

#define JOINED2(left, right) left##right
#define JOINED(left, right) JOINED2(left, right)
#define CHECK JOINED(Check, __LINE__)

// Whether the class has a member of that name at all, also a type, also one that is not public: a
// decoy of the same name beside it makes the name ambiguous then. Where nothing can be derived from
// the class nobody knows; it counts as named.
#define MEMBER_IS_NAMED(member)                                                                    \
    struct Decoy                                                                                   \
    {                                                                                              \
        int member;                                                                                \
    };                                                                                             \
    template <typename T> struct Both : T, Decoy                                                   \
    { };                                                                                           \
    template <typename T> static constexpr bool isNamed()                                          \
    {                                                                                              \
        if constexpr (std::is_final_v<T> || !std::is_destructible_v<T>)                            \
            return true;                                                                           \
        else                                                                                       \
            return !requires                                                                       \
            {                                                                                      \
                &Both<T>::member;                                                                  \
            };                                                                                     \
    }
#define REGISTER(owner, name, expected)                                                            \
    [[maybe_unused]] const bool JOINED(added, __LINE__)                                            \
        = add(#owner, name, expected, lookInto<CHECK, ::owner>());

// A public operation, called as the plug-in calls it. `object` is one, `constant` one that cannot
// be changed.
#define OPERATION(owner, member, expected, ...)                                                    \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        MEMBER_IS_NAMED(member)                                                                    \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool calls()                                    \
            {                                                                                      \
                return requires(T & object, const T &constant)                                     \
                {                                                                                  \
                    __VA_ARGS__;                                                                   \
                };                                                                                 \
            }                                                                                      \
            static constexpr bool fits() { return calls<Host>(); }                                 \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, #member, expected)                                                             \
    }
// An operation for who derives from the class, as the plug-in does.
#define INHERITED(owner, member, expected, ...)                                                    \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        MEMBER_IS_NAMED(member)                                                                    \
        template <typename Host> struct Fit : Host                                                 \
        {                                                                                          \
            template <typename T> static constexpr bool calls()                                    \
            {                                                                                      \
                return requires(T & object, const T &constant)                                     \
                {                                                                                  \
                    __VA_ARGS__;                                                                   \
                };                                                                                 \
            }                                                                                      \
            static constexpr bool fits() { return calls<Fit>(); }                                  \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, #member, expected)                                                             \
    }
// An operation that the plug-in overrides: exactly this type.
#define OVERRIDDEN(owner, member, expected, result, ...)                                           \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        MEMBER_IS_NAMED(member)                                                                    \
        template <typename Host> struct Fit : Host                                                 \
        {                                                                                          \
            template <typename T> static constexpr bool overrides()                                \
            {                                                                                      \
                return requires                                                                    \
                {                                                                                  \
                    static_cast<result (T::*)(__VA_ARGS__)>(&T::member);                           \
                };                                                                                 \
            }                                                                                      \
            static constexpr bool fits() { return overrides<Fit>(); }                              \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, #member, expected)                                                             \
    }
// Something of the class as a whole: how it is made, or what it is.
#define PROPERTY(owner, name, expected, ...)                                                       \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed() { return true; }                     \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool holds() { return __VA_ARGS__; }            \
            static constexpr bool fits() { return holds<Host>(); }                                 \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, name, expected)                                                                \
    }
// What the plug-in turns the class into without saying so.
#define CONVERSION(owner, type)                                                                    \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed() { return false; }                    \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            static constexpr bool fits() { return std::is_convertible_v<Host, type>; }             \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, "operator " #type, "operator " #type "() const")                               \
    }
// A value of an enumeration, with its code.
#define CODE(owner, member, number)                                                                \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed()                                      \
        {                                                                                          \
            return requires                                                                        \
            {                                                                                      \
                T::member;                                                                         \
            };                                                                                     \
        }                                                                                          \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool isCode()                                   \
            {                                                                                      \
                if constexpr (requires { static_cast<int>(T::member); })                           \
                    return static_cast<int>(T::member) == number;                                  \
                else                                                                               \
                    return false;                                                                  \
            }                                                                                      \
            static constexpr bool fits() { return isCode<Host>(); }                                \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, #member, #member " = " #number)                                                \
    }
// A value of an enumeration that is called by its namespace, without the enumeration's name.
#define NAMESPACE_CODE(scope, enumeration, member, number)                                         \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed()                                      \
        {                                                                                          \
            return requires                                                                        \
            {                                                                                      \
                T::member;                                                                         \
            };                                                                                     \
        }                                                                                          \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool isCode()                                   \
            {                                                                                      \
                if constexpr (requires { T::member; } && std::is_convertible_v<T, int>)            \
                    return static_cast<int>(T::member) == number;                                  \
                else                                                                               \
                    return false;                                                                  \
            }                                                                                      \
            static constexpr bool fits() { return isCode<Host>(); }                                \
        };                                                                                         \
    };                                                                                             \
    [[maybe_unused]] const bool JOINED(added, __LINE__)                                            \
        = add(#scope, #member, #member " = " #number, lookInto<CHECK, ::scope::enumeration>());    \
    }
// A value of an enumeration of the class, whatever its code.
#define MEMBER_CODE(owner, enumeration, member)                                                    \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed() { return false; }                    \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool calls()                                    \
            {                                                                                      \
                return requires                                                                    \
                {                                                                                  \
                    T::enumeration::member;                                                        \
                };                                                                                 \
            }                                                                                      \
            static constexpr bool fits() { return calls<Host>(); }                                 \
        };                                                                                         \
    };                                                                                             \
    REGISTER(owner, #enumeration "::" #member, #enumeration "::" #member)                          \
    }
// A class that comes from a factory or is the one of its kind.
#define MADE_BY(factory, member, product, result)                                                  \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed() { return isDeclared<::factory<T>>; } \
        template <typename Host> struct Fit                                                        \
        {                                                                                          \
            template <typename T> static constexpr bool makes()                                    \
            {                                                                                      \
                return requires                                                                    \
                {                                                                                  \
                    {                                                                              \
                        ::factory<T>::member()                                                     \
                        } -> Gives<result>;                                                        \
                };                                                                                 \
            }                                                                                      \
            static constexpr bool fits() { return isDeclared<::factory<Host>> && makes<Host>(); }  \
        };                                                                                         \
    };                                                                                             \
    [[maybe_unused]] const bool JOINED(added, __LINE__) = add(#factory "<" #product ">", #member,  \
        #result " " #member "()", lookInto<CHECK, ::product>());                                   \
    }
// A function or constant of a namespace.
#define FUNCTION(scope, member, expected, ...)                                                     \
    namespace {                                                                                    \
    struct CHECK                                                                                   \
    {                                                                                              \
        template <typename T> static constexpr bool isNamed()                                      \
        {                                                                                          \
            return !requires(const T &nothing)                                                     \
            {                                                                                      \
                ::scope::member(nothing);                                                          \
            };                                                                                     \
        }                                                                                          \
        template <typename Dependent> static constexpr bool calls()                                \
        {                                                                                          \
            return requires                                                                        \
            {                                                                                      \
                __VA_ARGS__;                                                                       \
            };                                                                                     \
        }                                                                                          \
    };                                                                                             \
    [[maybe_unused]] const bool JOINED(added, __LINE__) = add(                                     \
        #scope, #member, expected, findingOf(CHECK::calls<int>(), CHECK::isNamed<NotThere>()));    \
    }
#define CONSTANT(scope, member, expected, type)                                                    \
    namespace {                                                                                    \
    [[maybe_unused]] const bool JOINED(added, __LINE__) = add(#scope, #member, expected,           \
        findingOf(std::is_convertible_v<decltype(::scope::member), type>,                          \
            !std::is_same_v<const NotThere, decltype(::scope::member)>));                          \
    }

// Framework

PROPERTY(BasicPlugin, "BasicPlugin", "a class, declared as an interface with Q_DECLARE_INTERFACE",
    qobject_interface_iid<T *>() != nullptr)
OVERRIDDEN(BasicPlugin, init, "virtual bool init() = 0", bool)
INHERITED(BasicPlugin, setPluginName, "void setPluginName(const QString &name)",
    object.setPluginName(of<const QString &>()))
INHERITED(BasicPlugin, addTrigger, "void addTrigger(const ActionTrigger &trigger)",
    object.addTrigger(of<const ::ActionTrigger &>()))
PROPERTY(BasicLoyaltySystem, "BasicLoyaltySystem",
    "derived virtually from BasicPlugin, and declared as an interface with Q_DECLARE_INTERFACE",
    qobject_interface_iid<T *>() != nullptr && std::is_base_of_v<::BasicPlugin, T>)
OVERRIDDEN(BasicLoyaltySystem, identifyByCard,
    "virtual bool identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type)",
    bool, CardRecord &, ::ECardNumberType)
OVERRIDDEN(BasicLoyaltySystem, request,
    "virtual bool request(const QSharedPointer<AbstractDocument> &document)", bool,
    const Document &)
OVERRIDDEN(BasicLoyaltySystem, commit,
    "virtual bool commit(const QSharedPointer<AbstractDocument> &document)", bool, const Document &)
OVERRIDDEN(BasicLoyaltySystem, rollback,
    "virtual bool rollback(const QSharedPointer<AbstractDocument> &document)", bool,
    const Document &)
OVERRIDDEN(BasicLoyaltySystem, cancel, "virtual bool cancel()", bool)
OVERRIDDEN(BasicLoyaltySystem, getPointsForSpend,
    "virtual double getPointsForSpend(const QSharedPointer<AbstractDocument> &document)", double,
    const Document &)
OVERRIDDEN(BasicLoyaltySystem, setPointsForSpend,
    "virtual void setPointsForSpend(const QSharedPointer<AbstractDocument> &document, double "
    "points)",
    void, const Document &, double)
OVERRIDDEN(BasicLoyaltySystem, spendPoints, "virtual bool spendPoints()", bool)
OVERRIDDEN(BasicLoyaltySystem, hasPointsForEarn, "virtual bool hasPointsForEarn()", bool)
OVERRIDDEN(BasicLoyaltySystem, restoreLoyaltySystem, "virtual bool restoreLoyaltySystem()", bool)
OVERRIDDEN(BasicLoyaltySystem, beforePutoutCheck, "virtual void beforePutoutCheck()", void)
OVERRIDDEN(BasicLoyaltySystem, afterPutoutCheck, "virtual void afterPutoutCheck()", void)
OVERRIDDEN(BasicLoyaltySystem, clearLoyaltyData, "virtual void clearLoyaltyData()", void)
INHERITED(BasicLoyaltySystem, registerLoyaltySystem, "bool registerLoyaltySystem()",
    { object.registerLoyaltySystem() } -> Gives<bool>)
INHERITED(BasicLoyaltySystem, setOption, "void setOption(LoyaltySystemOption option, bool on)",
    object.setOption(of<::LoyaltySystemOption>(), true))
INHERITED(
    BasicLoyaltySystem, hasCard, "bool hasCard() const", { constant.hasCard() } -> Gives<bool>)
INHERITED(BasicLoyaltySystem, getCard, "QSharedPointer<DocumentCardRecord> getCard() const",
    { constant.getCard() } -> Gives<CardRecord>)
INHERITED(BasicLoyaltySystem, getCurrentDocument,
    "QSharedPointer<AbstractDocument> getCurrentDocument() const",
    { constant.getCurrentDocument() } -> Gives<Document>)
INHERITED(BasicLoyaltySystem, setPluginData,
    "void setPluginData(const QString &key, const QVariant &value) const",
    constant.setPluginData(of<const QString &>(), of<const QVariant &>()))
INHERITED(BasicLoyaltySystem, getPluginData,
    "QVariant getPluginData(const QString &key, const QVariant &defaultValue) const",
    { constant.getPluginData(of<const QString &>(), of<const QVariant &>()) } -> Gives<QVariant>)
INHERITED(BasicLoyaltySystem, clearData, "void clearData() const", constant.clearData())
INHERITED(BasicLoyaltySystem, distributeBonusRecord,
    "QList<DocumentBonusRecord> distributeBonusRecord(const QSharedPointer<AbstractDocument> "
    "&document, const DocumentBonusRecord &record) const",
    { constant.distributeBonusRecord(of<const Document &>(), of<const ::DocumentBonusRecord &>()) }
    -> Gives<QList<::DocumentBonusRecord>>)
INHERITED(BasicLoyaltySystem, m_cardMode, "ECardMode m_cardMode",
    { object.m_cardMode } -> Is<::ECardMode>)
INHERITED(BasicLoyaltySystem, m_discountImpacts,
    "QList<QSharedPointer<DiscountImpact>> m_discountImpacts",
    { object.m_discountImpacts } -> Is<QList<QSharedPointer<::DiscountImpact>>>)
INHERITED(BasicLoyaltySystem, m_bonusImpactsForSpend,
    "QList<QSharedPointer<BonusImpact>> m_bonusImpactsForSpend",
    { object.m_bonusImpactsForSpend } -> Is<QList<QSharedPointer<::BonusImpact>>>)
INHERITED(BasicLoyaltySystem, m_bonusRecords, "QList<DocumentBonusRecord> m_bonusRecords",
    { object.m_bonusRecords } -> Is<QList<::DocumentBonusRecord>>)
INHERITED(BasicLoyaltySystem, m_messagesToCashier, "QStringList m_messagesToCashier",
    { object.m_messagesToCashier } -> Is<QStringList>)
INHERITED(BasicLoyaltySystem, m_messagesToClient, "QStringList m_messagesToClient",
    { object.m_messagesToClient } -> Is<QStringList>)
INHERITED(
    BasicLoyaltySystem, m_lastError, "tr::Tr m_lastError", { object.m_lastError } -> Is<::tr::Tr>)
INHERITED(BasicLoyaltySystem, m_lastErrorFlag, "bool m_lastErrorFlag",
    { object.m_lastErrorFlag } -> Is<bool>)
INHERITED(BasicLoyaltySystem, m_pointsForSpend, "double m_pointsForSpend",
    { object.m_pointsForSpend } -> Is<double>)
INHERITED(BasicLoyaltySystem, m_pointsToSpend, "double m_pointsToSpend",
    { object.m_pointsToSpend } -> Is<double>)
INHERITED(BasicLoyaltySystem, m_pointsForEarn, "double m_pointsForEarn",
    { object.m_pointsForEarn } -> Is<double>)
PROPERTY(BaseActivityListener, "BaseActivityListener", "a QObject", std::is_base_of_v<QObject, T>)
OVERRIDDEN(BaseActivityListener, handleEvent, "virtual void handleEvent(const Event &event) = 0",
    void, const ::Event &)
OPERATION(ActivityNotifier, subscribe, "void subscribe(BaseActivityListener *listener)",
    object.subscribe(of<::BaseActivityListener *>()))
OPERATION(ActivityNotifier, notify, "void notify(const Event &event)",
    object.notify(of<const ::Event &>()))
MADE_BY(Singleton, instance, ActivityNotifier, T *)
PROPERTY(Event, "Event",
    "Event(EActivityListener::Event code, const QMap<QString, QVariant> &arguments = {})",
    std::is_constructible_v<T, ::EActivityListener::Event>
        &&std::is_constructible_v<T, ::EActivityListener::Event, Values>)
OPERATION(Event, getCode, "EActivityListener::Event getCode() const",
    { constant.getCode() } -> Gives<::EActivityListener::Event>)
OPERATION(Event, addArgument, "void addArgument(const QString &name, const QVariant &value)",
    object.addArgument(of<const QString &>(), of<const QVariant &>()))
NAMESPACE_CODE(EActivityListener, Event, ChequeClosed, 10)
NAMESPACE_CODE(EActivityListener, Event, ChequeCancelled, 12)
NAMESPACE_CODE(EActivityListener, Event, DocumentEntered, 22)
NAMESPACE_CODE(EActivityListener, Event, LoyaltyRequestStarted, 72)
NAMESPACE_CODE(EActivityListener, Event, LoyaltyRequestFinished, 73)
NAMESPACE_CODE(EActivityListener, Event, LoyaltyError, 253)
PROPERTY(control::Action, "Action", "a class whose copies share their values",
    std::is_copy_constructible_v<T>)
OPERATION(control::Action, value,
    "QVariant value(const QString &name, const QVariant &defaultValue = {}) const",
    { constant.value(of<const QString &>()) } -> Gives<QVariant>)
OPERATION(control::Action, insert, "void insert(const QString &name, const QVariant &value) const",
    constant.insert(of<const QString &>(), of<const QVariant &>()))
CODE(control::EActionType, ApplyModifiers, 5)
CODE(control::EActionType, Total, 133)
CODE(control::EActionType, PayWithPoints, 144)
CODE(control::EActionType, Input, 192)
CODE(control::EActionType, AddCoupon, 198)
CODE(control::EActionType, AddPosition, 201)
CODE(EContext::Code, Cheque, 6)
CODE(EContext::Result, Refuse, 0)
CODE(EContext::Result, Stop, 1)
CODE(EContext::Result, Continue, 2)
PROPERTY(
    ActionTrigger, "ActionTrigger",
    "ActionTrigger(EContext::Code context, control::EActionType actionType, Order order, "
    "std::function<EContext::Result(const control::Action &)> handler, Result result, Priority "
    "priority)",
    requires(typename T::Order order, typename T::Result result, typename T::Priority priority) {
        T(of<::EContext::Code>(), of<::control::EActionType>(), order,
            of<std::function<::EContext::Result(const ::control::Action &)>>(), result, priority);
    })
MEMBER_CODE(ActionTrigger, Order, Before)
MEMBER_CODE(ActionTrigger, Order, After)
MEMBER_CODE(ActionTrigger, Result, Obey)
MEMBER_CODE(ActionTrigger, Priority, First)
MEMBER_CODE(ActionTrigger, Priority, Second)
MEMBER_CODE(ActionTrigger, Priority, Third)
CODE(LoyaltySystemOption, SpendsPoints, 16)
CODE(LoyaltySystemOption, EarnsPoints, 64)
CODE(LoyaltySystemOption, UsesCoupons, 1024)
CODE(LoyaltySystemOption, WorksOffline, 131072)
PROPERTY(tr::Tr, "Tr", "Tr(), and Tr(const QString &id, const QString &text); copied and assigned",
    std::is_default_constructible_v<T> &&std::is_constructible_v<T, QString, QString>
        &&std::is_copy_assignable_v<T>)
OPERATION(tr::Tr, arg, "Tr arg(const QString &argument) const",
    { constant.arg(of<const QString &>()) } -> Gives<T>)
OPERATION(tr::Tr, ru, "QString ru() const", { constant.ru() } -> Gives<QString>)
OPERATION(tr::Tr, ui, "QString ui() const", { constant.ui() } -> Gives<QString>)
CONVERSION(tr::Tr, QVariant)
CONSTANT(tr, undefined, "const QString undefined", QString)
PROPERTY(BasicException, "BasicException",
    "explicit BasicException(const tr::Tr &message); copied, and derived from by the plug-in",
    std::is_constructible_v<T, const ::tr::Tr &> &&std::is_copy_constructible_v<T>)
OPERATION(BasicException, tr, "const tr::Tr & tr() const", { constant.tr() } -> Gives<::tr::Tr>)
OPERATION(BasicException, flag, "bool flag() const", { constant.flag() } -> Gives<bool>)
OPERATION(BasicException, setFlag, "void setFlag(bool flag)", object.setFlag(true))
PROPERTY(Finally, "Finally", "explicit Finally(std::function<void()> action)",
    std::is_constructible_v<T, std::function<void()>>)
OPERATION(CurrentTime, currentDateTime, "QDateTime currentDateTime() const",
    { constant.currentDateTime() } -> Gives<QDateTime>)
MADE_BY(MockFactory, create, CurrentTime, QSharedPointer<T>)
OPERATION(DocumentWatcher, couponChanged,
    "void couponChanged(const QString &number, const QString &displayedNumber)",
    object.couponChanged(of<const QString &>(), of<const QString &>()))
MADE_BY(Singleton, instance, DocumentWatcher, T *)

// Documents

OPERATION(AbstractDocument, getType, "EDocumentType getType() const",
    { constant.getType() } -> Gives<::EDocumentType>)
OPERATION(AbstractDocument, getNumber, "QString getNumber() const",
    { constant.getNumber() } -> Gives<QString>)
OPERATION(AbstractDocument, isOperation,
    "bool isOperation(const QPair<EDocumentType, EOperationKind> &typeAndKind, EOperationKind "
    "kind) const",
    {
        constant.isOperation(
            of<const QPair<::EDocumentType, ::EOperationKind> &>(), of<::EOperationKind>())
    } -> Gives<bool>)
OPERATION(AbstractDocument, getReferencedNumber, "QString getReferencedNumber() const",
    { constant.getReferencedNumber() } -> Gives<QString>)
OPERATION(AbstractDocument, getGoods, "QList<QSharedPointer<GoodsItem>> getGoods() const",
    { constant.getGoods() } -> Gives<QList<QSharedPointer<::GoodsItem>>>)
OPERATION(AbstractDocument, getPosition, "QSharedPointer<GoodsItem> getPosition(int posnum) const",
    { constant.getPosition(1) } -> Gives<QSharedPointer<::GoodsItem>>)
OPERATION(AbstractDocument, getSumBeforeDiscounts, "double getSumBeforeDiscounts() const",
    { constant.getSumBeforeDiscounts() } -> Gives<double>)
OPERATION(AbstractDocument, getSumAfterDiscounts, "double getSumAfterDiscounts() const",
    { constant.getSumAfterDiscounts() } -> Gives<double>)
OPERATION(AbstractDocument, recalculate, "void recalculate()", object.recalculate())
OPERATION(AbstractDocument, refresh, "void refresh()", object.refresh())
OPERATION(AbstractDocument, getCardRecord,
    "QSharedPointer<DocumentCardRecord> getCardRecord(ECardMode mode) const",
    { constant.getCardRecord(of<::ECardMode>()) } -> Gives<CardRecord>)
OPERATION(AbstractDocument, addCardRecord,
    "void addCardRecord(const QSharedPointer<DocumentCardRecord> &record)",
    object.addCardRecord(of<const CardRecord &>()))
OPERATION(AbstractDocument, hasCoupons, "bool hasCoupons() const",
    { constant.hasCoupons() } -> Gives<bool>)
OPERATION(AbstractDocument, getCoupons, "QList<QSharedPointer<Coupon>> getCoupons() const",
    { constant.getCoupons() } -> Gives<QList<QSharedPointer<::Coupon>>>)
OPERATION(AbstractDocument, getCoupon,
    "QSharedPointer<Coupon> getCoupon(const QString &number) const",
    { constant.getCoupon(of<const QString &>()) } -> Gives<QSharedPointer<::Coupon>>)
OPERATION(AbstractDocument, removeCoupon, "void removeCoupon(const QSharedPointer<Coupon> &coupon)",
    object.removeCoupon(of<const QSharedPointer<::Coupon> &>()))
OPERATION(AbstractDocument, removeCoupons, "void removeCoupons()", object.removeCoupons())
OPERATION(AbstractDocument, getStoredValue,
    "QVariant getStoredValue(const QString &group, const QString &key, const QVariant "
    "&defaultValue) const",
    {
        constant.getStoredValue(
            of<const QString &>(), of<const QString &>(), of<const QVariant &>())
    } -> Gives<QVariant>)
OPERATION(AbstractDocument, getModifiers, "ModifiersContainer &getModifiers()",
    { object.getModifiers() } -> Gives<::ModifiersContainer &>)
OPERATION(AbstractDocument, setChequeText, "void setChequeText(const QString &text)",
    object.setChequeText(of<const QString &>()))
CODE(EDocumentType, Sale, 1)
CODE(EDocumentType, Correction, 5)
CODE(EDocumentType, ReturnWithoutSale, 7)
CODE(EDocumentType, ReturnOfSale, 25)
CODE(EOperationKind, GoodsComeBack, 2)
CODE(ECardMode, OnlineLoyalty, 23)
PROPERTY(GoodsItem, "GoodsItem", "a QObject with properties", std::is_base_of_v<QObject, T>)
OPERATION(GoodsItem, getPosnum, "int getPosnum() const", { constant.getPosnum() } -> Gives<int>)
OPERATION(GoodsItem, getCode, "QString getCode() const", { constant.getCode() } -> Gives<QString>)
OPERATION(GoodsItem, getPrice, "double getPrice() const", { constant.getPrice() } -> Gives<double>)
OPERATION(
    GoodsItem, getBquant, "double getBquant() const", { constant.getBquant() } -> Gives<double>)
OPERATION(GoodsItem, getSumn, "double getSumn() const", { constant.getSumn() } -> Gives<double>)
OPERATION(GoodsItem, getSumb, "double getSumb() const", { constant.getSumb() } -> Gives<double>)
OPERATION(GoodsItem, getMinRetailPrice, "double getMinRetailPrice() const",
    { constant.getMinRetailPrice() } -> Gives<double>)
OPERATION(GoodsItem, setMinRetailPrice, "void setMinRetailPrice(double price)",
    object.setMinRetailPrice(1.0))
OPERATION(GoodsItem, getExtendedOptions, "QString getExtendedOptions() const",
    { constant.getExtendedOptions() } -> Gives<QString>)
OPERATION(GoodsItem, getTmc, "QSharedPointer<Tmc> getTmc() const",
    { constant.getTmc() } -> Gives<QSharedPointer<::Tmc>>)
OPERATION(GoodsItem, getTmcUnit, "TmcUnit getTmcUnit() const",
    { constant.getTmcUnit() } -> Gives<::TmcUnit>)
OPERATION(GoodsItem, setUniteAvailableProp, "void setUniteAvailableProp(bool available)",
    object.setUniteAvailableProp(true))
OPERATION(
    GoodsItem, setRecalcable, "void setRecalcable(bool recalcable)", object.setRecalcable(true))
OPERATION(
    TmcUnit, isFractional, "bool isFractional() const", { constant.isFractional() } -> Gives<bool>)
OPERATION(Tmc, getIndexPrices, "QList<QSharedPointer<TmcIndexPrice>> getIndexPrices() const",
    { constant.getIndexPrices() } -> Gives<QList<QSharedPointer<::TmcIndexPrice>>>)
OPERATION(Tmc, hasIndexPrice, "bool hasIndexPrice(int code) const",
    { constant.hasIndexPrice(1) } -> Gives<bool>)
OPERATION(Tmc, getIndexPrice, "QSharedPointer<TmcIndexPrice> getIndexPrice(int code) const",
    { constant.getIndexPrice(1) } -> Gives<QSharedPointer<::TmcIndexPrice>>)
PROPERTY(TmcIndexPrice, "TmcIndexPrice", "a QObject with properties", std::is_base_of_v<QObject, T>)
OPERATION(TmcIndexPrice, getCode, "int getCode() const", { constant.getCode() } -> Gives<int>)
OPERATION(
    TmcIndexPrice, getPrice, "double getPrice() const", { constant.getPrice() } -> Gives<double>)
PROPERTY(DocumentCardRecord, "DocumentCardRecord",
    "explicit DocumentCardRecord(const QSharedPointer<Card> &card)",
    std::is_constructible_v<T, const QSharedPointer<::Card> &>)
OPERATION(DocumentCardRecord, getCard, "QSharedPointer<Card> getCard() const",
    { constant.getCard() } -> Gives<QSharedPointer<::Card>>)
OPERATION(DocumentCardRecord, getNumber, "QVariant getNumber() const",
    { constant.getNumber() } -> Gives<QVariant>)
OPERATION(DocumentCardRecord, getCodeInternal, "int getCodeInternal() const",
    { constant.getCodeInternal() } -> Gives<int>)
OPERATION(DocumentCardRecord, setBonusBalance, "void setBonusBalance(const QVariant &balance)",
    object.setBonusBalance(of<const QVariant &>()))
OPERATION(DocumentCardRecord, setPointsForSpend, "void setPointsForSpend(double points)",
    object.setPointsForSpend(1.0))
OPERATION(DocumentCardRecord, setPointsForEarn, "void setPointsForEarn(const QVariant &points)",
    object.setPointsForEarn(of<const QVariant &>()))
OPERATION(DocumentCardRecord, getOperationId, "QString getOperationId() const",
    { constant.getOperationId() } -> Gives<QString>)
OPERATION(DocumentCardRecord, setOperationId, "void setOperationId(const QString &id)",
    object.setOperationId(of<const QString &>()))
OPERATION(DocumentCardRecord, getOperationInfo, "QVariant getOperationInfo() const",
    { constant.getOperationInfo() } -> Gives<QVariant>)
OPERATION(DocumentCardRecord, setOperationInfo, "void setOperationInfo(const QVariant &info)",
    object.setOperationInfo(of<const QVariant &>()))
PROPERTY(Card, "Card", "Card()", std::is_default_constructible_v<T>)
OPERATION(Card, getNumber, "QString getNumber() const", { constant.getNumber() } -> Gives<QString>)
OPERATION(Card, setNumber, "void setNumber(const QString &number)",
    object.setNumber(of<const QString &>()))
OPERATION(Card, setCardGroup, "void setCardGroup(const QSharedPointer<CardGroup> &group)",
    object.setCardGroup(of<const QSharedPointer<::CardGroup> &>()))
OPERATION(Card, setClient, "void setClient(const QSharedPointer<Client> &client)",
    object.setClient(of<const QSharedPointer<::Client> &>()))
PROPERTY(CardGroup, "CardGroup", "CardGroup()", std::is_default_constructible_v<T>)
OPERATION(
    CardGroup, setName, "void setName(const QString &name)", object.setName(of<const QString &>()))
OPERATION(CardGroup, setCardMode, "void setCardMode(ECardMode mode)",
    object.setCardMode(of<::ECardMode>()))
PROPERTY(Client, "Client", "Client()", std::is_default_constructible_v<T>)
OPERATION(
    Client, setName, "void setName(const QString &name)", object.setName(of<const QString &>()))
OPERATION(
    Client, setEmail, "void setEmail(const QString &email)", object.setEmail(of<const QString &>()))
OPERATION(Client, setOption, "void setOption(ClientOptions option)",
    object.setOption(of<::ClientOptions>()))
CODE(ClientOptions, ElectronicCheque, 1)
CODE(ClientOptions, ChequeByEmail, 2)
OPERATION(
    Coupon, getNumber, "QString getNumber() const", { constant.getNumber() } -> Gives<QString>)
OPERATION(Coupon, setDisplayedNumber, "void setDisplayedNumber(const QString &text)",
    object.setDisplayedNumber(of<const QString &>()))
PROPERTY(DocumentImpactDetail, "DocumentImpactDetail", "DocumentImpactDetail()",
    std::is_default_constructible_v<T>)
OPERATION(DocumentImpactDetail, setDateTime, "void setDateTime(const QDateTime &dateTime)",
    object.setDateTime(of<const QDateTime &>()))
OPERATION(DocumentImpactDetail, setImpactSource,
    "void setImpactSource(EImpactSource::source source)",
    object.setImpactSource(::EImpactSource::source{}))
OPERATION(DocumentImpactDetail, setDiscountObject,
    "void setDiscountObject(EDiscountObject::type object)",
    object.setDiscountObject(::EDiscountObject::type{}))
OPERATION(
    DocumentImpactDetail, setPosition, "void setPosition(int position)", object.setPosition(1))
OPERATION(DocumentImpactDetail, setDiscountMode, "void setDiscountMode(EDiscountMode::type mode)",
    object.setDiscountMode(::EDiscountMode::type{}))
OPERATION(DocumentImpactDetail, setDiscountType, "void setDiscountType(EDiscountType::type type)",
    object.setDiscountType(::EDiscountType::type{}))
OPERATION(DocumentImpactDetail, setDiscountRate, "void setDiscountRate(const QVariant &rate)",
    object.setDiscountRate(of<const QVariant &>()))
OPERATION(DocumentImpactDetail, setDiscountSum, "void setDiscountSum(double sum)",
    object.setDiscountSum(1.0))
OPERATION(DocumentImpactDetail, setDiscountName, "void setDiscountName(const QString &name)",
    object.setDiscountName(of<const QString &>()))
OPERATION(DocumentImpactDetail, setMinPriceIgnored, "void setMinPriceIgnored(bool ignored)",
    object.setMinPriceIgnored(true))
OPERATION(DocumentImpactDetail, setCardRecord,
    "void setCardRecord(const QSharedPointer<DocumentCardRecord> &card)",
    object.setCardRecord(of<const CardRecord &>()))
OPERATION(DocumentImpactDetail, setCardIndex, "void setCardIndex(const QVariant &index)",
    object.setCardIndex(of<const QVariant &>()))
NAMESPACE_CODE(EImpactSource, source, LoyaltySystem, 2)
NAMESPACE_CODE(EDiscountObject, type, Position, 1)
NAMESPACE_CODE(EDiscountMode, type, Automatic, 2)
NAMESPACE_CODE(EDiscountType, type, Percentage, 1)
NAMESPACE_CODE(EDiscountType, type, Points, 5)
PROPERTY(DiscountImpact, "DiscountImpact",
    "explicit DiscountImpact(const QSharedPointer<DocumentImpactDetail> &detail)",
    std::is_constructible_v<T, const QSharedPointer<::DocumentImpactDetail> &>)
PROPERTY(BonusImpact, "BonusImpact",
    "explicit BonusImpact(const QSharedPointer<DocumentImpactDetail> &detail)",
    std::is_constructible_v<T, const QSharedPointer<::DocumentImpactDetail> &>)
OPERATION(BonusImpact, addDetailForPosition, "void addDetailForPosition(int position, double sum)",
    object.addDetailForPosition(1, 1.0))
PROPERTY(DocumentBonusRecord, "DocumentBonusRecord", "DocumentBonusRecord(); copied",
    std::is_default_constructible_v<T> &&std::is_copy_constructible_v<T>)
OPERATION(DocumentBonusRecord, setCardNumber, "void setCardNumber(const QString &number)",
    object.setCardNumber(of<const QString &>()))
OPERATION(DocumentBonusRecord, setPosition, "void setPosition(const QVariant &position)",
    object.setPosition(of<const QVariant &>()))
OPERATION(DocumentBonusRecord, setAmount, "void setAmount(double amount)", object.setAmount(1.0))
OPERATION(DocumentBonusRecord, setCampaignCode, "void setCampaignCode(int code)",
    object.setCampaignCode(1))
OPERATION(DocumentBonusRecord, setCampaignName, "void setCampaignName(const QString &name)",
    object.setCampaignName(of<const QString &>()))
OPERATION(DocumentBonusRecord, setGivenForPosition, "void setGivenForPosition(bool given)",
    object.setGivenForPosition(true))
OPERATION(DocumentBonusRecord, setDateTime, "void setDateTime(const QDateTime &dateTime)",
    object.setDateTime(of<const QDateTime &>()))
OPERATION(DocumentFactory, makeDocument,
    "QSharedPointer<AbstractDocument> makeDocument(const QSharedPointer<AbstractDocument> "
    "&document) const",
    { constant.makeDocument(of<const Document &>()) } -> Gives<Document>)
MADE_BY(Singleton, instance, DocumentFactory, T *)
OPERATION(DocumentLogic, getObjects,
    "QList<QObject *> getObjects(const QSharedPointer<AbstractDocument> &document) const",
    { constant.getObjects(of<const Document &>()) } -> Gives<QList<QObject *>>)
MADE_BY(MockFactory, create, DocumentLogic, QSharedPointer<T>)
OPERATION(DiscountLogic, process,
    "void process(const QSharedPointer<AbstractDocument> &document, EDiscountProcessing mode) "
    "const",
    constant.process(of<const Document &>(), of<::EDiscountProcessing>()))
MADE_BY(MockFactory, create, DiscountLogic, QSharedPointer<T>)
CODE(EDiscountProcessing, RemoveLoyalty, 2)
CODE(EDiscountProcessing, PrepareForSending, 6)
OPERATION(ModifiersContainer, isSet, "bool isSet(modifiers::Type type) const",
    { constant.isSet(of<::modifiers::Type>()) } -> Gives<bool>)
OPERATION(ModifiersContainer, value, "QVariant value(modifiers::Type type) const",
    { constant.value(of<::modifiers::Type>()) } -> Gives<QVariant>)
OPERATION(ModifiersContainer, clearAll, "void clearAll()", object.clearAll())
CODE(modifiers::Type, Quantity, 3)
CODE(modifiers::Type, RepeatedScan, 17)
OPERATION(Quantity, value, "double value() const", { constant.value() } -> Gives<double>)
FUNCTION(money, counts, "bool counts(double amount)",
    { ::money::counts(late<Dependent, double>()) } -> Gives<bool>)
FUNCTION(money, equal, "bool equal(double left, double right)",
    { ::money::equal(late<Dependent, double>(), 1.0) } -> Gives<bool>)
CONSTANT(money, tolerance, "constexpr double tolerance", double)

// Services

OPERATION(Config, getString,
    "QString getString(const QString &key, const QString &defaultValue) const",
    { constant.getString(of<const QString &>(), of<const QString &>()) } -> Gives<QString>)
OPERATION(Config, getInt, "int getInt(const QString &key, int defaultValue) const",
    { constant.getInt(of<const QString &>(), of<const int &>()) } -> Gives<int>)
OPERATION(Config, getBool, "bool getBool(const QString &key, bool defaultValue) const",
    { constant.getBool(of<const QString &>(), of<const bool &>()) } -> Gives<bool>)
OPERATION(Config, getDouble, "double getDouble(const QString &key, double defaultValue) const",
    { constant.getDouble(of<const QString &>(), of<const double &>()) } -> Gives<double>)
OPERATION(Config, getStringList,
    "QStringList getStringList(const QString &key, const QStringList &defaultValue) const", {
        constant.getStringList(of<const QString &>(), of<const QStringList &>())
    } -> Gives<QStringList>)
OPERATION(Config, getIntList,
    "QList<int> getIntList(const QString &key, const QList<int> &defaultValue) const",
    { constant.getIntList(of<const QString &>(), of<const QList<int> &>()) } -> Gives<QList<int>>)
OPERATION(Config, getSections, "QStringList getSections(const QString &pattern) const",
    { constant.getSections(of<const QString &>()) } -> Gives<QStringList>)
OPERATION(Config, getKeys, "QStringList getKeys(const QString &section) const",
    { constant.getKeys(of<const QString &>()) } -> Gives<QStringList>)
MADE_BY(Singleton, instance, Config, T *)
OPERATION(RestClient, setTimeout, "void setTimeout(int seconds)", object.setTimeout(1))
OPERATION(RestClient, setLogger, "void setLogger(const Log4Qt::Logger *logger)",
    object.setLogger(of<::Log4Qt::Logger *>()))
OPERATION(RestClient, post,
    "void post(const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers)",
    object.post(
        of<const QUrl &>(), of<const QByteArray &>(), of<const QHash<QString, QString> &>()))
OPERATION(RestClient, errorCode, "int errorCode() const", { constant.errorCode() } -> Gives<int>)
OPERATION(RestClient, errorMessage, "tr::Tr errorMessage() const",
    { constant.errorMessage() } -> Gives<::tr::Tr>)
OPERATION(RestClient, responseBody, "QByteArray responseBody() const",
    { constant.responseBody() } -> Gives<QByteArray>)
CODE(RestClient, None, 0)
MADE_BY(MockFactory, create, RestClient, QSharedPointer<T>)
OPERATION(DBQueueBroker, enqueue,
    "void enqueue(const QString &queue, const QMap<QString, QVariant> &message, const QString "
    "&remark)",
    object.enqueue(of<const QString &>(), of<const Values &>(), of<const QString &>()))
MADE_BY(Singleton, instance, DBQueueBroker, T *)
OPERATION(SaveToFileLogic, save,
    "void save(const QSharedPointer<AbstractDocument> &document, const QString &fileName)",
    object.save(of<const Document &>(), of<const QString &>()))
MADE_BY(MockFactory, create, SaveToFileLogic, QSharedPointer<T>)
OPERATION(Dialog, showMessage,
    "void showMessage(const tr::Tr &message, EDialogKind kind, EDialogDuration duration)",
    object.showMessage(of<const ::tr::Tr &>(), of<::EDialogKind>(), of<::EDialogDuration>()))
OPERATION(Dialog, showChoice,
    "bool showChoice(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject, "
    "EDialogKind kind, EDialogDuration duration)",
    {
        object.showChoice(of<const ::tr::Tr &>(), of<const ::tr::Tr &>(), of<const ::tr::Tr &>(),
            of<::EDialogKind>(), of<::EDialogDuration>())
    } -> Gives<bool>)
OPERATION(
    Dialog, showInputTextForm,
    "Result showInputTextForm(const InputTextFormParameters &parameters), with bool canceled() "
    "const and QVariant getData() const of the result",
    { object.showInputTextForm(of<const ::InputTextFormParameters &>()).canceled() } -> Gives<bool>;
    { object.showInputTextForm(of<const ::InputTextFormParameters &>()).getData() }
    -> Gives<QVariant>)
CODE(EDialogKind, Attention, 1)
CODE(EDialogDuration, UntilAnswered, 0)
MADE_BY(MockFactory, create, Dialog, QSharedPointer<T>)
PROPERTY(InputTextFormParameters, "InputTextFormParameters", "InputTextFormParameters()",
    std::is_default_constructible_v<T>)
OPERATION(InputTextFormParameters, title, "tr::Tr title", object.title = of<const ::tr::Tr &>())
OPERATION(
    InputTextFormParameters, message, "tr::Tr message", object.message = of<const ::tr::Tr &>())
OPERATION(InputTextFormParameters, scanError, "tr::Tr scanError",
    object.scanError = of<const ::tr::Tr &>())
OPERATION(
    InputTextFormParameters, okButton, "tr::Tr okButton", object.okButton = of<const ::tr::Tr &>())
OPERATION(InputTextFormParameters, cancelButton, "tr::Tr cancelButton",
    object.cancelButton = of<const ::tr::Tr &>())
OPERATION(InputTextFormParameters, regularExpression, "QString regularExpression",
    object.regularExpression = of<const QString &>())
OPERATION(
    InputTextFormParameters, formName, "QString formName", object.formName = of<const QString &>())
OPERATION(InputTextFormParameters, showDigitalKeyboard, "bool showDigitalKeyboard",
    { object.showDigitalKeyboard } -> Is<bool>)
OPERATION(TextPrinter, print,
    "void print(const QString &templateName, const QString &text, const QMap<QString, QVariant> "
    "&data, int copies, bool cut)",
    object.print(of<const QString &>(), of<const QString &>(), of<const Values &>(), 1, true))
OPERATION(TextPrinter, defaultCopies, "static constexpr int defaultCopies",
    { T::defaultCopies } -> Gives<int>)
MADE_BY(MockFactory, create, TextPrinter, QSharedPointer<T>)
OPERATION(SimpleFormatter, format,
    "QString format(const QString &mask, const QList<QObject *> &objects, int flags, QMap<QString, "
    "QString> &resolved) const",
    {
        constant.format(of<const QString &>(), of<const QList<QObject *> &>(), 0,
            of<QMap<QString, QString> &>())
    } -> Gives<QString>)
OPERATION(SimpleFormatter, plain, "static constexpr int plain", { T::plain } -> Gives<int>)
MADE_BY(MockFactory, create, SimpleFormatter, QSharedPointer<T>)
FUNCTION(xmlutils, createTextElement,
    "QDomElement createTextElement(QDomDocument &document, const QString &tag, const QString "
    "&text)",
    {
        ::xmlutils::createTextElement(
            late<Dependent, QDomDocument &>(), of<const QString &>(), of<const QString &>())
    } -> Gives<QDomElement>)
FUNCTION(xmlutils, appendNotNull,
    "void appendNotNull(QDomElement &parent, const QDomElement &element)",
    ::xmlutils::appendNotNull(late<Dependent, QDomElement &>(), of<const QDomElement &>()))
FUNCTION(
    xmlutils, getValueByTag,
    "QString getValueByTag(const QDomDocument &scope, const QString &tag, int index), and the same "
    "of a const QDomElement &",
    { ::xmlutils::getValueByTag(late<Dependent, const QDomDocument &>(), of<const QString &>(), 1) }
    -> Gives<QString>;
    { ::xmlutils::getValueByTag(late<Dependent, const QDomElement &>(), of<const QString &>(), 1) }
    -> Gives<QString>)
OPERATION(Log4Qt::LogManager, logger, "static Logger *logger(const QString &name)",
    { T::logger(of<const QString &>()) } -> Gives<::Log4Qt::Logger *>)
OPERATION(Log4Qt::Logger, debug, "void debug(const QString &message) const",
    constant.debug(of<const QString &>()))
OPERATION(Log4Qt::Logger, info, "void info(const QString &message) const",
    constant.info(of<const QString &>()))
OPERATION(Log4Qt::Logger, warn, "void warn(const QString &message) const",
    constant.warn(of<const QString &>()))
OPERATION(Log4Qt::Logger, error, "void error(const QString &message) const",
    constant.error(of<const QString &>()))

namespace {

std::string textOf(const Operation &operation)
{
    switch (operation.finding) {
    case Finding::Present:
        return "present";
    case Finding::Missing:
        return "missing (expected " + operation.expected + ')';
    case Finding::OtherSignature:
        return "other signature (expected " + operation.expected + ')';
    }
    return {};
}

// How an operation is named: what stands for its class as a whole by the class alone.
std::string nameOf(const Operation &operation)
{
    const std::string &owner = operation.owner;
    const std::string last = owner.substr(owner.rfind(':') + 1);
    return last == operation.name ? owner : owner + "::" + operation.name;
}

int printTable(bool onlyWrong)
{
    std::size_t present = 0;
    for (const Operation &operation : operations()) {
        const bool isPresent = operation.finding == Finding::Present;
        present += isPresent;
        if (!isPresent || !onlyWrong)
            std::cout << nameOf(operation) << ": " << textOf(operation) << '\n';
    }
    std::cout << present << " of " << operations().size() << " operations are present\n";
    return present == operations().size() ? 0 : 1;
}

int printMarkdown()
{
    std::cout << "| Operation | Signature |\n|---|---|\n";
    for (const Operation &operation : operations())
        std::cout << "| `" << nameOf(operation) << "` | `" << operation.expected << "` |\n";
    return 0;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    const std::string_view option = argumentCount > 1 ? arguments[1] : "";
    if (option == "--markdown")
        return printMarkdown();
    if (!option.empty() && option != "--wrong") {
        std::cerr << "host-conformance: no option \"" << option
                  << "\"; use --wrong or --markdown\n";
        return 2;
    }
    return printTable(option == "--wrong");
}
