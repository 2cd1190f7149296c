#pragma once

#include "export/ExportChoices.h"

#include <QGroupBox>
#include <array>

class QCheckBox;
class QComboBox;

// The export dialog's write order: six boxes that name the columns in the order in
// which they are written, each with a check box that says whether its column is
// written at all. The six boxes always name each column once: a key chosen in one
// box that another box shows moves there in exchange for the first box's previous key.
class ExportWriteOrderBox final : public QGroupBox {
    Q_OBJECT

public:
    explicit ExportWriteOrderBox(QWidget* parent = nullptr);

    // keys are indexes into ColumnKeys, one per box; keys that do not name each
    // column once give the default order.
    void SetWriteOrder(const std::array<int, ColumnCount>& keys,
                       const std::array<bool, ColumnCount>& written);
    std::array<int, ColumnCount> Keys() const;
    std::array<bool, ColumnCount> Written() const;
    std::array<ExportColumn, ColumnCount> Columns() const;

private:
    void cboWriteOrder_Click(int index);

    std::array<QComboBox*, ColumnCount> m_cboWriteOrder{};
    std::array<QCheckBox*, ColumnCount> m_chkWriteOrder{};
    std::array<int, ColumnCount> m_shown{}; // the key each box showed before the latest choice
};
