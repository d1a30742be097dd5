// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/rule_table_model.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "kit/rules/method_titles.h"
#include "kit/rules/rule_editor.h"
#include "kit/settings_page/rule_text.h"
#include "kit/texts/plain_text.h"
#include "kit/widgets/theme_pictures.h"

namespace zepa {

RuleTableModel::RuleTableModel(ZepaNotificationModule& module, RuleEditor& editor, QObject* parent)
    : QAbstractTableModel(parent), m_module(module), m_editor(editor)
{
    readRegistries();
    connect(&editor, &RuleEditor::rulesChanged, this, &RuleTableModel::tellRow);
    connect(&editor, &RuleEditor::tableChanged, this, [this] {
        beginResetModel();
        readRegistries();
        endResetModel();
    });
}

ZepaNotification* RuleTableModel::type(const QModelIndex& index) const
{
    return m_types.value(index.row());
}

ZepaNotificationMethod* RuleTableModel::method(const QModelIndex& index) const
{
    return m_methods.value(index.column());
}

int RuleTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_types.size());
}

int RuleTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_methods.size()) + 1;
}

QVariant RuleTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (method(index))
        return markData(index, role);

    const ZepaNotification& shown = *type(index);
    switch (role) {
    case Qt::DisplayRole:
        // Some types are described by their name: nobody needs to read it twice.
        return shown.getDescription() == shown.getName() ? QString() : shown.getDescription();
    case Qt::ToolTipRole:
        return plainToolTip(shown.getDescription());
    case Qt::AccessibleTextRole:
        return tr("%1: %2", "event, description").arg(shown.getName(), shown.getDescription());
    default:
        return {};
    }
}

QVariant RuleTableModel::markData(const QModelIndex& index, int role) const
{
    const QList<RuleState> rules = m_editor.rules(type(index)->getId(), method(index)->getId());
    const QString title = tr("%1, %2: %3", "event, method, count of rules")
                              .arg(type(index)->getName(), methodTitle(*method(index)), ruleCountText(rules.size()));
    switch (role) {
    case Qt::CheckStateRole:
        return rules.isEmpty() ? Qt::Unchecked : Qt::Checked;
    case Qt::DisplayRole:
        return rules.size() > 1 ? QString::number(rules.size()) : QString();
    case Qt::AccessibleTextRole:
        return title;
    case Qt::AccessibleDescriptionRole:
        return rules.isEmpty() ? tr("Space adds a rule.") : tr("Space removes the newest rule.");
    case Qt::ToolTipRole: {
        QStringList lines{title};
        for (const RuleState& rule : rules) {
            if (!rule.fields.isEmpty())
                lines.append(settingsText(rule));
        }
        return plainToolTip(lines.join(u'\n'));
    }
    default:
        return {};
    }
}

bool RuleTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || !method(index))
        return false;
    // What the mark shows decides, not what the caller thought it showed.
    Q_UNUSED(value)
    m_editor.toggle(type(index)->getId(), method(index)->getId());
    return true;
}

QVariant RuleTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return section < m_types.size() ? typeHeader(*m_types[section], role) : QVariant();
    if (section < m_methods.size())
        return methodHeader(*m_methods[section], role);
    switch (role) {
    case Qt::DisplayRole:
        return tr("Meaning");
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeading | Qt::AlignVCenter));
    default:
        return {};
    }
}

QVariant RuleTableModel::typeHeader(const ZepaNotification& type, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return type.getName();
    case Qt::ToolTipRole:
        return plainToolTip(tr("%1\nIdentifier: %2").arg(type.getDescription(), type.getId()));
    default:
        return {};
    }
}

QVariant RuleTableModel::methodHeader(const ZepaNotificationMethod& method, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return methodTitle(method);
    case Qt::DecorationRole:
        return picture(methodPicture(method));
    case Qt::ToolTipRole:
        return plainToolTip(
            (isBuiltIn(method.getId()) ? tr("%1\nIdentifier: %2") : tr("%1\nAdd-on method. Identifier: %2"))
                .arg(method.getActionName(), method.getId()));
    default:
        return {};
    }
}

/// Read once: a header asks each time that it is drawn.
QIcon RuleTableModel::picture(const QString& file) const
{
    const auto known = m_pictures.constFind(file);
    return known != m_pictures.cend() ? *known : *m_pictures.insert(file, themeIcon(file));
}

Qt::ItemFlags RuleTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return method(index) ? shown | Qt::ItemIsUserCheckable : shown;
}

void RuleTableModel::readRegistries()
{
    m_types = typesInOrder(m_module);
    m_methods = methodsInOrder(m_module);
}

void RuleTableModel::tellRow(const QString& typeId)
{
    for (int row = 0; row < rowCount(); ++row) {
        if (m_types[row]->getId() == typeId)
            Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    }
}

} // namespace zepa
