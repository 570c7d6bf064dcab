#include "host/printing/template.h"

#include "host/framework/basicexception.h"

#include <QFile>
#include <QLocale>
#include <QRegularExpression>

#include <kainjow/mustache.hpp>

using namespace Qt::Literals::StringLiterals;

namespace printtemplate {

namespace {

using Data = kainjow::mustache::data;

Data dataFrom(const QVariant &value);

Data dataFrom(const QVariantMap &map)
{
    Data members{Data::type::object};
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        members.set(entry.key().toStdString(), dataFrom(entry.value()));
    return members;
}

Data dataFrom(const QVariantList &list)
{
    Data items{Data::type::list};
    for (const QVariant &item : list)
        items.push_back(dataFrom(item));
    return items;
}

Data dataFrom(const QString &text)
{
    return text.isEmpty() ? Data(false) : Data(text.toStdString());
}

Data dataFrom(const QVariant &value)
{
    // What is made here belongs to the value; the analyser loses sight of it there.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        return dataFrom(value.toMap());
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return dataFrom(value.toList());
    case QMetaType::Bool:
        return Data(value.toBool());
    case QMetaType::Double:
        return dataFrom(QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest));
    default:
        return dataFrom(value.toString());
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
}

// The library drops the line of a closing tag only where its section was shown. Behind each stands
// a section that is always shown, of a name that nothing has, so that what is left out leaves no
// empty line behind.
QString withoutIdleLines(QString contents)
{
    static const QRegularExpression loneClosingTag(
        uR"(^([ \t]*\{\{/[^}]+\}\})[ \t]*$)"_s, QRegularExpression::MultilineOption);
    return contents.replace(loneClosingTag, u"\\1{{^-}}{{/-}}"_s);
}

} // namespace

QString load(const QString &name, const QStringList &folders)
{
    for (const QString &folder : folders) {
        QFile file(folder + u'/' + name + u".mustache"_s);
        if (file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.readAll());
    }
    throw BasicException(tr::Tr(u"printTemplateMissing"_s,
        u"Не найден шаблон печати «%1» в папках: %2. Проверьте настройку TextPrinter:templates"_s)
                             .arg(name)
                             .arg(folders.join(u", "_s)));
}

QString fill(const QString &contents, const QVariantMap &data, const QString &name)
{
    kainjow::mustache::mustache compiled(withoutIdleLines(contents).toStdString());
    compiled.set_custom_escape([](const std::string &text) { return text; });
    const std::string text = compiled.is_valid() ? compiled.render(dataFrom(data)) : std::string();
    if (!compiled.is_valid())
        throw BasicException(tr::Tr(u"printTemplateWrong"_s, u"Ошибка в шаблоне печати «%1»: %2"_s)
                                 .arg(name)
                                 .arg(QString::fromStdString(compiled.error_message())));
    return QString::fromStdString(text);
}

} // namespace printtemplate
