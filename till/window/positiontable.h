#pragma once

#include "till/window/chequeview.h"

#include <QTableWidget>

#include <optional>

namespace till {

/// The positions of the cheque, one of them chosen.
class PositionTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit PositionTable(QWidget *parent = nullptr);

    /// The chosen position stays chosen; where there is a new one, or it has gone, the last one is.
    void showPositions(const QList<PositionRow> &rows);
    /// Number of the chosen position; nothing when there is none.
    [[nodiscard]] std::optional<int> chosen() const;
    /// Chooses the position so many rows further down, as far as there are rows.
    void chooseFurther(int rows);

private:
    void fill(int row, const PositionRow &position);

    QList<int> m_posnums; ///< of the rows
};

} // namespace till
