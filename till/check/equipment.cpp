// What a till needs beside its state: texts in the right letters, articles, templates, the plug-in.

#include "host/documents/catalogue.h"
#include "host/framework/basicexception.h"
#include "host/printing/receipt.h"
#include "host/printing/textprinter.h"
#include "till/check/machine.h"
#include "till/pluginloading.h"

#include <QFileInfo>

#include <langinfo.h>

#include <algorithm>
#include <clocale>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

constexpr ushort firstBeyondAscii = 0x80;

bool isAscii(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
        [](QChar character) { return character.unicode() < firstBeyondAscii; });
}

Finding ofMachine(
    Severity severity, const QString &key, const tr::Tr &what, const tr::Tr &remedy = {})
{
    return {severity, Area::Machine, {{}, 0, key}, what, remedy};
}

Finding ofMachine(
    Severity severity, const Place &place, const tr::Tr &what, const tr::Tr &remedy = {})
{
    return {severity, Area::Machine, place, what, remedy};
}

} // namespace

QByteArray codesetOfEnvironment()
{
    const locale_t environment = ::newlocale(LC_CTYPE_MASK, "", nullptr);
    if (!environment)
        return {};
    QByteArray codeset = ::nl_langinfo_l(CODESET, environment);
    ::freelocale(environment);
    return codeset;
}

Findings judgeCredentials(const Effective &effective, const QByteArray &codeset)
{
    Findings found;
    for (const QString &name : {u"KorvelLoyaltyOnline:user"_s, u"KorvelLoyaltyOnline:password"_s}) {
        if (isAscii(effective.text(name)))
            continue;
        const bool isUtf8 = codeset.compare("UTF-8", Qt::CaseInsensitive) == 0;
        found.append(ofMachine(isUtf8 ? Severity::Note : Severity::Warning, effective.place(name),
            tr::Tr(u"checkCredentialsLetters"_s,
                u"в значении не только латинские буквы; оно передаётся в UTF-8, кодировка "
                u"системы — %1"_s)
                .arg(codeset.isEmpty() ? u"?"_s : QString::fromLatin1(codeset)),
            {u"checkLatinCredentials"_s,
                u"убедитесь, что сервис ждёт UTF-8, или возьмите латинские буквы и цифры"_s}));
    }
    return found;
}

Findings judgeCatalogue(const Effective &effective)
{
    const QString name = u"Till:catalogue"_s;
    const QString path = effective.path(name);
    if (path.isEmpty())
        return {ofMachine(Severity::Note, name,
            {u"checkNoCatalogue"_s, u"каталога нет: касса не знает ни одного товара"_s},
            {u"checkNameCatalogue"_s, u"задайте Till:catalogue"_s})};
    // Was told with the values.
    if (!QFileInfo::exists(path))
        return {};
    try {
        const auto count = Catalogue::load(path).articles().size();
        return {ofMachine(Severity::Ok, effective.place(name),
            tr::Tr(u"checkCatalogue"_s, u"товаров в каталоге: %1"_s).arg(QString::number(count)))};
    } catch (const CatalogueError &error) {
        return {ofMachine(Severity::Error, effective.place(name),
            {u"checkCatalogueWrong"_s, u"каталог не читается"_s}, error.tr())};
    }
}

Findings judgeTemplates(const Effective &effective)
{
    const QString name = u"TextPrinter:templates"_s;
    Findings found;
    for (const QString &printed : {receipt::templateName, u"korvelloyaltyonline_coupon"_s}) {
        try {
            static_cast<void>(
                TextPrinter::sheets(printed, {}, {}, TextPrinter::defaultCopies, false));
            found.append(ofMachine(Severity::Ok, effective.place(name),
                tr::Tr(u"checkTemplate"_s, u"шаблон печати %1 в порядке"_s).arg(printed)));
        } catch (const BasicException &error) {
            found.append(ofMachine(Severity::Error, effective.place(name),
                tr::Tr(u"checkTemplateWrong"_s, u"шаблон %1 не печатается"_s).arg(printed),
                error.tr()));
        }
    }
    return found;
}

Findings judgePlugin(const QString &fileName)
{
    try {
        requirePluginFile(fileName);
        return {ofMachine(Severity::Ok, QString(),
            tr::Tr(u"checkPlugin"_s, u"модуль лояльности %1 подходит этой кассе"_s).arg(fileName))};
    } catch (const PluginError &error) {
        return {ofMachine(Severity::Error, QString(),
            {u"checkPluginWrong"_s, u"модуль лояльности не подходит"_s}, error.tr())};
    }
}

} // namespace till::check
