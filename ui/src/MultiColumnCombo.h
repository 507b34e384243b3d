#pragma once
// A drop-down list whose pop-up shows several columns under their captions,
// each row keeping a hidden 32-bit key; its edit part shows the first column.
#include <QComboBox>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class QStandardItemModel;
class QTreeView;

namespace avlor::ui {

class MultiColumnCombo final : public QComboBox {
public:
    explicit MultiColumnCombo(QWidget* parent = nullptr);

    // Called just before the pop-up opens, so that the list can be refilled.
    std::function<void()> aboutToOpen;

    void setColumns(const std::vector<std::string>& captions);
    void setRows(const std::vector<std::vector<std::string>>& rows, const std::vector<std::int32_t>& keys);
    [[nodiscard]] std::vector<std::string> columnCaptions() const;
    [[nodiscard]] std::int32_t keyAt(int row) const;
    [[nodiscard]] QTreeView* popupView() const noexcept { return view_; }

    void showPopup() override;

private:
    QStandardItemModel* model_;
    QTreeView* view_;
};

} // namespace avlor::ui
