#include "host/net/trustbasis.h"

#include <curl/curl.h>
#include <sys/stat.h>

namespace {

FileMark markOf(const QByteArray &fileName)
{
    struct stat status
    { };
    if (fileName.isEmpty() || ::stat(fileName.constData(), &status) != 0)
        return {fileName};
    return {fileName, status.st_dev, status.st_ino, status.st_size, status.st_ctim.tv_sec,
        status.st_ctim.tv_nsec};
}

// Where libcurl looks for the system's authorities.
QList<FileMark> systemAuthorities()
{
    const curl_version_info_data *const built = curl_version_info(CURLVERSION_NOW);
    return {markOf(built->cainfo), markOf(built->capath)};
}

} // namespace

TrustBasis trustBasis(const ExchangeSettings &settings)
{
    QList<FileMark> files
        = settings.caFile.isEmpty() ? systemAuthorities() : QList{markOf(settings.caFile)};
    files.append(markOf(settings.clientCert));
    files.append(markOf(settings.clientKey));
    return {files, settings.proxy};
}
