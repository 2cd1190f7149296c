#include "ui/ExportWriteOrderBox.h"

#include "export/ExportPrefs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QSignalBlocker>

namespace {

const std::array<int, ColumnCount> DefaultOrder = ExportPrefs().WriteOrder;

} // namespace

ExportWriteOrderBox::ExportWriteOrderBox(QWidget* parent)
    : QGroupBox(QStringLiteral("Write Order"), parent) {
    setObjectName(QStringLiteral("fraWriteOrder"));
    auto* layout = new QGridLayout(this);
    for (int i = 0; i < ColumnCount; ++i) {
        const QString number = QString::number(i);
        m_chkWriteOrder[i] = new QCheckBox(QStringLiteral("Column #%1").arg(i + 1), this);
        m_chkWriteOrder[i]->setObjectName(QStringLiteral("chkWriteOrder_") + number);
        m_cboWriteOrder[i] = new QComboBox(this);
        m_cboWriteOrder[i]->setObjectName(QStringLiteral("cboWriteOrder_") + number);
        m_cboWriteOrder[i]->addItems(ColumnKeys);
        layout->addWidget(m_chkWriteOrder[i], i, 0);
        layout->addWidget(m_cboWriteOrder[i], i, 1);
        connect(m_cboWriteOrder[i], &QComboBox::currentIndexChanged, this,
                [this, i] { cboWriteOrder_Click(i); });
    }
    SetWriteOrder(DefaultOrder, {true, true, true, true, true, true});
}

void ExportWriteOrderBox::SetWriteOrder(const std::array<int, ColumnCount>& keys,
                                        const std::array<bool, ColumnCount>& written) {
    const std::array<int, ColumnCount>& shown = NamesEachColumnOnce(keys) ? keys : DefaultOrder;
    for (int i = 0; i < ColumnCount; ++i) {
        const QSignalBlocker blocker(m_cboWriteOrder[i]);
        m_cboWriteOrder[i]->setCurrentIndex(shown[i]);
        m_shown[i] = shown[i];
        m_chkWriteOrder[i]->setChecked(written[i]);
    }
}

std::array<int, ColumnCount> ExportWriteOrderBox::Keys() const {
    return m_shown;
}

std::array<bool, ColumnCount> ExportWriteOrderBox::Written() const {
    std::array<bool, ColumnCount> written{};
    for (int i = 0; i < ColumnCount; ++i)
        written[i] = m_chkWriteOrder[i]->isChecked();
    return written;
}

std::array<ExportColumn, ColumnCount> ExportWriteOrderBox::Columns() const {
    std::array<ExportColumn, ColumnCount> columns;
    for (int i = 0; i < ColumnCount; ++i)
        columns[i] = {ColumnKeys[m_shown[i]], m_chkWriteOrder[i]->isChecked()};
    return columns;
}

// The box that showed the chosen key takes this box's previous key.
void ExportWriteOrderBox::cboWriteOrder_Click(int index) {
    const int chosen = m_cboWriteOrder[index]->currentIndex();
    const int previous = m_shown[index];
    for (int other = 0; other < ColumnCount; ++other) {
        if (other == index || m_shown[other] != chosen)
            continue;
        const QSignalBlocker blocker(m_cboWriteOrder[other]);
        m_cboWriteOrder[other]->setCurrentIndex(previous);
        m_shown[other] = previous;
    }
    m_shown[index] = chosen;
}
