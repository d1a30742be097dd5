// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <QList>

class ZepaNotification;
class ZepaNotificationMethod;
class ZepaNotificationModule;

namespace zepa {

class RuleEditor;

/// A row for each type, a column for each method with a check mark where a rule is, and a last column with what the
/// types mean. Checking and unchecking a mark is RuleEditor::toggle().
class RuleTableModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    RuleTableModel(ZepaNotificationModule& module, RuleEditor& editor, QObject* parent);

    /// What the cell is about; null without a cell, the method null in the last column.
    ZepaNotification* type(const QModelIndex& index) const;
    ZepaNotificationMethod* method(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void readRegistries();
    void tellRow(const QString& typeId);
    QVariant markData(const QModelIndex& index, int role) const;
    QVariant typeHeader(const ZepaNotification& type, int role) const;
    QVariant methodHeader(const ZepaNotificationMethod& method, int role) const;
    QIcon picture(const QString& file) const;

    ZepaNotificationModule& m_module;
    RuleEditor& m_editor;
    QList<ZepaNotification*> m_types;
    QList<ZepaNotificationMethod*> m_methods;
    mutable QHash<QString, QIcon> m_pictures; ///< of methods, by file
};

} // namespace zepa
