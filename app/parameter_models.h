#pragma once

#include "app/parameter_files.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

/// A check list: headings, which cannot be checked, and items.
class CheckListModel : public QAbstractListModel {
  Q_OBJECT
 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<ParameterFiles::CheckItem>& items() const { return items_; }
  void setItems(std::vector<ParameterFiles::CheckItem> items);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  std::vector<ParameterFiles::CheckItem> items_;
};

/// Job statuses with their colour and whether they are offered. The edit values are the stored texts.
class StatusModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { Name, Colour, State, ColumnCount };
  using QAbstractTableModel::QAbstractTableModel;

  const std::vector<ParameterFiles::StatusRow>& rows() const { return rows_; }
  void setRows(std::vector<ParameterFiles::StatusRow> rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  /// Refuses what is no colour and no state.
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  std::vector<ParameterFiles::StatusRow> rows_;
};

/// Lets a status' colour and state be chosen from a list, which opens by itself.
class StatusDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};
