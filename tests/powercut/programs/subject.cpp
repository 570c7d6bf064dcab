// What is recorded: a till's state folder in full use. "subject
// documents|files|journal|queue|resume FOLDER SEED"; with "plainly" behind it documents are written
// straight to their file, and the journal always anew.

#include "host/storage/statefolder.h"
#include "tests/powercut/programs/subjects.h"

#include <QCoreApplication>

#include <iostream>

using namespace Qt::StringLiterals;

namespace {

int run(const QStringList &words)
{
    enum Word : qsizetype
    {
        Work = 1,
        Folder,
        Seed,
        Manner
    };
    Singleton<StateFolder>::instance()->setPath(
        words.at(Folder) + u'/' + powercut::samples::stateFolder);
    const quint32 seed = words.at(Seed).toUInt();
    const bool plainly = words.value(Manner) == u"plainly";
    if (words.at(Work) == u"documents")
        powercut::keepDocuments(seed, plainly);
    else if (words.at(Work) == u"journal")
        powercut::keepJournal(seed, plainly);
    else if (words.at(Work) == u"files")
        powercut::replaceFiles();
    else if (words.at(Work) == u"queue")
        powercut::keepMessages(seed);
    else
        powercut::resume();
    return 0;
}

} // namespace

int main(int count, char **words)
{
    const QCoreApplication application(count, words);
    try {
        return run(QCoreApplication::arguments());
    } catch (const std::exception &error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
}
