#include "tests/till/window/fitting.h"

#include "till/window/busyveil.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QWidget &widget, const QString &text)
{
    return u"%1 \"%2\""_s.arg(widget.objectName(), text.simplified());
}

QString measures(const QSize &needed, const QSize &given)
{
    return u" needs %1×%2 and has %3×%4"_s.arg(needed.width())
        .arg(needed.height())
        .arg(given.width())
        .arg(given.height());
}

QSize neededBy(const QLabel &label)
{
    const QSize hint = label.sizeHint();
    if (!label.wordWrap())
        return hint;
    constexpr int endless = 1 << 20;
    const QRect room(0, 0, label.contentsRect().width(), endless);
    const int widest
        = label.fontMetrics().boundingRect(room, Qt::TextWordWrap, label.text()).width();
    const QMargins margins = label.contentsMargins();
    return {widest + margins.left() + margins.right(), label.heightForWidth(label.width())};
}

bool isTooSmall(const QSize &needed, const QSize &given)
{
    return needed.width() > given.width() || needed.height() > given.height();
}

void lookAtText(
    const QWidget &widget, const QString &text, const QSize &needed, QStringList &misfits)
{
    if (!text.isEmpty() && isTooSmall(needed, widget.size()))
        misfits.append(nameOf(widget, text) + measures(needed, widget.size()));
}

void lookAtHeader(const QHeaderView &header, QStringList &misfits)
{
    for (int section = 0; section < header.count(); ++section) {
        const QString text = header.model()->headerData(section, Qt::Horizontal).toString();
        const QSize needed(header.sectionSizeHint(section), 0);
        const QSize given(header.sectionSize(section), 0);
        if (isTooSmall(needed, given))
            misfits.append(nameOf(header, text) + measures(needed, given));
    }
}

void lookAtPlaceholder(const QLineEdit &line, QStringList &misfits)
{
    QStyleOptionFrame option;
    option.initFrom(&line);
    const QSize room
        = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line).size();
    const QSize needed(line.fontMetrics().horizontalAdvance(line.placeholderText()), 0);
    if (isTooSmall(needed, room))
        misfits.append(nameOf(line, line.placeholderText()) + measures(needed, room));
}

bool isScrolled(const QWidget &widget)
{
    for (const QWidget *parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (qobject_cast<const QAbstractScrollArea *>(parent))
            return true;
    return false;
}

void lookAtOverlaps(const QWidget &parent, QStringList &misfits)
{
    QList<const QWidget *> children;
    for (const QObject *child : parent.children())
        if (const auto *widget = qobject_cast<const QWidget *>(child); widget && widget->isVisible()
            && !widget->isWindow() && !qobject_cast<const till::BusyVeil *>(widget))
            children.append(widget);
    for (int one = 0; one < children.size(); ++one) {
        if (!parent.rect().contains(children.at(one)->geometry()))
            misfits.append(nameOf(*children.at(one), u"sticks out"_s));
        for (int other = one + 1; other < children.size(); ++other)
            if (children.at(one)->geometry().intersects(children.at(other)->geometry()))
                misfits.append(
                    nameOf(*children.at(one), u"overlaps"_s) + nameOf(*children.at(other), {}));
    }
}

} // namespace

QStringList misfitsOf(const QWidget &window)
{
    QStringList misfits;
    lookAtOverlaps(window, misfits);
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        if (const auto *header = qobject_cast<const QHeaderView *>(widget);
            header && header->orientation() == Qt::Horizontal)
            lookAtHeader(*header, misfits);
        if (isScrolled(*widget) || qobject_cast<const QAbstractScrollArea *>(widget))
            continue;
        lookAtOverlaps(*widget, misfits);
        if (const auto *label = qobject_cast<const QLabel *>(widget))
            lookAtText(*label, label->text(), neededBy(*label), misfits);
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            lookAtText(*button, button->text(), button->minimumSizeHint(), misfits);
        if (const auto *line = qobject_cast<const QLineEdit *>(widget))
            lookAtPlaceholder(*line, misfits);
    }
    return misfits;
}
