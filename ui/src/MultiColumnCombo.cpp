#include "MultiColumnCombo.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>

namespace avlor::ui {

namespace {

QString qtext(const std::string& text) { return QString::fromStdString(text); }

constexpr int KeyRole = Qt::UserRole + 1;

} // namespace

MultiColumnCombo::MultiColumnCombo(QWidget* parent)
    : QComboBox(parent), model_(new QStandardItemModel(this)), view_(new QTreeView(this))
{
    setModel(model_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setItemsExpandable(false);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->header()->setStretchLastSection(true);
    setView(view_);
    // The view replaces the list's own: its header shows the column captions.
    view_->header()->setVisible(true);
    setModelColumn(0);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
}

void MultiColumnCombo::setColumns(const std::vector<std::string>& captions)
{
    model_->setColumnCount(static_cast<int>(captions.size()));
    for (std::size_t c = 0; c < captions.size(); ++c) {
        model_->setHeaderData(static_cast<int>(c), Qt::Horizontal, qtext(captions[c]));
    }
}

std::vector<std::string> MultiColumnCombo::columnCaptions() const
{
    std::vector<std::string> captions;
    for (int c = 0; c < model_->columnCount(); ++c) {
        captions.push_back(model_->headerData(c, Qt::Horizontal).toString().toStdString());
    }
    return captions;
}

void MultiColumnCombo::setRows(const std::vector<std::vector<std::string>>& rows, const std::vector<std::int32_t>& keys)
{
    model_->removeRows(0, model_->rowCount());
    for (std::size_t r = 0; r < rows.size(); ++r) {
        QList<QStandardItem*> items;
        for (int c = 0; c < model_->columnCount(); ++c) {
            const std::size_t column = static_cast<std::size_t>(c);
            auto* item = new QStandardItem(column < rows[r].size() ? qtext(rows[r][column]) : QString());
            item->setEditable(false);
            items.append(item);
        }
        if (!items.isEmpty() && r < keys.size()) {
            items.front()->setData(keys[r], KeyRole);
        }
        model_->appendRow(items);
    }
}

std::int32_t MultiColumnCombo::keyAt(int row) const
{
    const QStandardItem* item = model_->item(row, 0);
    return item != nullptr ? item->data(KeyRole).toInt() : 0;
}

void MultiColumnCombo::showPopup()
{
    if (aboutToOpen) {
        aboutToOpen();
    }
    // Wide enough for every column.
    int width = 0;
    for (int c = 0; c < model_->columnCount(); ++c) {
        view_->resizeColumnToContents(c);
        width += view_->columnWidth(c);
    }
    view_->setMinimumWidth(width + 24);
    QComboBox::showPopup();
}

} // namespace avlor::ui
