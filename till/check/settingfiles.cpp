#include "till/check/settingfiles.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace till::check {

SettingFiles::SettingFiles(const QString &fileName)
{
    if (fileName.isEmpty())
        return;
    read(fileName);
    const QDir over(fileName + u".d"_s);
    for (const QString &name : over.entryList({u"*.ini"_s}, QDir::Files, QDir::Name))
        read(over.filePath(name));
}

void SettingFiles::read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        m_unreadable.append({Severity::Error, Area::Configuration, {fileName, 0, {}},
            tr::Tr(u"checkFileUnreadable"_s, u"файл не читается: %1"_s).arg(file.errorString()),
            {u"checkGiveRights"_s, u"проверьте его путь и права доступа"_s}});
        return;
    }
    // That a file is too long is said where it is loaded.
    const ini::Reading reading = ini::read(file.read(ini::longestFile));
    for (const ini::Defect &defect : reading.defects)
        m_unreadable.append({Severity::Error, Area::Configuration, {fileName, defect.line, {}},
            tr::Tr(u"checkLineMalformed"_s, u"строка не читается, столбец %1"_s)
                .arg(QString::number(defect.column)),
            defect.text});
    for (const ini::Section &section : reading.sections) {
        m_sections.append({fileName, section.line, section.name});
        for (const ini::Setting &setting : section.settings) {
            m_lines.append({fileName, setting.line, section.name, setting.key, setting.value});
            m_counting.insert(m_lines.constLast().name(), m_lines.size() - 1);
        }
    }
}

const Written *SettingFiles::find(const QString &name) const
{
    const auto place = m_counting.constFind(name);
    return place == m_counting.cend() ? nullptr : &m_lines.at(*place);
}

} // namespace till::check
