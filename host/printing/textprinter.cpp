#include "host/printing/textprinter.h"

#include "host/config/config.h"
#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/printing/receipt.h"
#include "host/printing/template.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "host/text/plaintext.h"

#include <QCoreApplication>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

template class MockFactory<TextPrinter>;

TextPrinter::Screen TextPrinter::s_screen;

TextPrinter::~TextPrinter() = default;

namespace {

const QString lineEnd = u"\n"_s;

QStringList templateFolders()
{
    QStringList folders;
    const QString configured
        = Singleton<Config>::instance()->getPath(u"TextPrinter:templates"_s, {});
    if (!configured.isEmpty())
        folders.append(configured);
    if (QCoreApplication::instance())
        folders.append(QCoreApplication::applicationDirPath() + u"/../share/korvel/templates"_s);
    folders.append(u":/korvel/templates"_s);
    return folders;
}

QString cutLine()
{
    const QString dash = u"- "_s;
    return dash.repeated(receipt::paperWidth / dash.size()).trimmed() + lineEnd;
}

QString withLineEnd(const QString &text)
{
    return text.endsWith(lineEnd) ? text : QString(text + lineEnd);
}

void appendToReceipts(const QString &text)
{
    const QString folder = Singleton<StateFolder>::instance()->receipts();
    const QDate today = MockFactory<CurrentTime>::create()->currentDateTime().date();
    const QString fileName = folder + u'/' + today.toString(Qt::ISODate) + u".txt"_s;
    try {
        atomicfile::makePrivateFolder(folder);
        posix::File(fileName, O_WRONLY | O_APPEND | O_CREAT).write(text.toUtf8());
    } catch (const StorageError &error) {
        throw BasicException(
            tr::Tr(u"receiptNotPrinted"_s, u"Не удалось напечатать: %1"_s).arg(error.tr()));
    }
}

} // namespace

QString TextPrinter::sheets(const QString &templateName, const QString &text,
    const QMap<QString, QVariant> &data, int copies, bool cut)
{
    const QString contents = text.isEmpty()
        ? printtemplate::fill(
            printtemplate::load(templateName, templateFolders()), data, templateName)
        : text;
    const QString sheet = withLineEnd(plaintext::block(contents)) + (cut ? cutLine() : QString());
    return sheet.repeated(copies == defaultCopies ? 1 : copies);
}

void TextPrinter::print(const QString &templateName, const QString &text,
    const QMap<QString, QVariant> &data, int copies, bool cut)
{
    const QString printed = sheets(templateName, text, data, copies, cut);
    appendToReceipts(printed);
    if (s_screen)
        s_screen(printed);
}

void TextPrinter::setScreen(Screen screen)
{
    s_screen = std::move(screen);
}
