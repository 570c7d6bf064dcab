#include "till/support/bundlecommand.h"

#include "host/framework/tr.h"
#include "till/exitstatus.h"
#include "till/pluginloading.h"
#include "till/queue/output.h"
#include "till/reporting.h"
#include "till/support/bundle.h"
#include "till/usage.h"

#include <QDir>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace till {

BundleCommand::BundleCommand(CLI::App &check)
{
    check
        .add_option("--bundle", m_file,
            spoken({u"commandLineBundle"_s,
                u"записать один архив для поддержки, без паролей и кодов"_s}))
        ->option_text("FILE");
}

int BundleCommand::execute(const RunOptions &options, const char *version) const
{
    return reportingErrors([&] {
        support::BundleRequest request;
        request.configFile = options.configFile;
        request.stateFolder = options.stateFolder;
        request.pluginFile = pluginFile(options.pluginFile);
        request.programVersion = u"korvel-till "_s + QString::fromUtf8(version);
        request.file = QDir::current().absoluteFilePath(QString::fromStdString(m_file));
        const QStringList problems = support::writeBundle(request);
        for (const QString &problem : problems)
            complain(tr::Tr(u"bundleLacks"_s, u"в архиве не хватает: %1"_s).arg(problem).ui());
        print(
            tr::Tr(u"bundleWritten"_s,
                u"Архив для поддержки: %1. Паролей и кодов в нём нет, номера карт и покупки есть"_s)
                .arg(request.file)
                .ui()
            + u'\n');
        return static_cast<int>(problems.isEmpty() ? ExitStatus::Success : ExitStatus::NotAllDone);
    });
}

} // namespace till
