#pragma once

#include "host/documents/abstractdocument.h"

#include <QTemporaryDir>

/// A till's workplace: a state folder of its own on the disk of the working folder, with a log.
class Workplace
{
public:
    Workplace();

    /// Makes it the open one.
    static void open(const QSharedPointer<AbstractDocument> &document);
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder{QStringLiteral("workplace-XXXXXX")};
};
