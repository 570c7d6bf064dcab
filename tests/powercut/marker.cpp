#include "tests/powercut/marker.h"

#include <dlfcn.h>

#include <stdexcept>

namespace powercut {

Story storyAt(const std::vector<Record> &records, std::size_t count)
{
    Story story;
    for (std::size_t record = 0; record < records.size() && !story.next; ++record) {
        if (records[record].kind != Record::Kind::Marker)
            continue;
        const auto words = QString::fromUtf8(records[record].payload).split(u' ');
        if (record < count)
            story.said.push_back(words);
        else
            story.next = words;
    }
    return story;
}

void mark(const QString &text)
{
    using Mark = void(const char *);
    static auto *const recorderMark
        = reinterpret_cast<Mark *>(::dlsym(RTLD_DEFAULT, "recorder_mark"));
    if (recorderMark == nullptr)
        throw std::runtime_error("nobody records this process");
    recorderMark(text.toUtf8().constData());
}

} // namespace powercut
