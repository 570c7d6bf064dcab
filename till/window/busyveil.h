#pragma once

#include "host/framework/tr.h"

#include <QWidget>

#include <chrono>

namespace till {

/// Lies over its parent while the loyalty service is asked, and says so.
///
/// Nothing processes events meanwhile, so it is painted at once by whoever tells it something.
class BusyVeil : public QWidget
{
    Q_OBJECT

public:
    /// @param parent what it covers; not null.
    explicit BusyVeil(QWidget *parent);

    /// Comes up with that text and no seconds, or changes its text.
    void begin(const tr::Tr &text);
    /// The exchange has taken so long; comes up with a text of its own where nobody has begun.
    void tick(std::chrono::seconds passed);
    void end();
    /// Whether it came up since the last call.
    [[nodiscard]] bool takeWasUp();

    [[nodiscard]] QString text() const { return m_text; }
    /// "3 с"; empty in the first second.
    [[nodiscard]] QString seconds() const { return m_seconds; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QString m_seconds;
    bool m_wasUp = false;
};

} // namespace till
