#include "till/window/busyveil.h"

#include "till/window/texts.h"

#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr QColor shade{20, 30, 45, 190};
constexpr int textSize = 28; // pixels
constexpr int margin = 40;

} // namespace

BusyVeil::BusyVeil(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"veil"_s);
    hide();
}

void BusyVeil::begin(const tr::Tr &text)
{
    m_text = text.ui();
    m_seconds.clear();
    m_wasUp = true;
    setGeometry(parentWidget()->rect());
    show();
    raise();
    repaint();
}

void BusyVeil::tick(std::chrono::seconds passed)
{
    if (isHidden())
        begin(texts::busy);
    const QString seconds = passed < std::chrono::seconds(1)
        ? QString()
        : texts::busySeconds.arg(QString::number(passed.count())).ui();
    if (seconds == m_seconds)
        return;
    m_seconds = seconds;
    repaint();
}

void BusyVeil::end()
{
    hide();
}

bool BusyVeil::takeWasUp()
{
    return std::exchange(m_wasUp, false);
}

void BusyVeil::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), shade);
    QFont large = font();
    large.setPixelSize(textSize);
    painter.setFont(large);
    painter.setPen(Qt::white);
    painter.drawText(rect().adjusted(margin, margin, -margin, -margin),
        Qt::AlignCenter | Qt::TextWordWrap, m_text + u"\n\n"_s + m_seconds);
}

} // namespace till
