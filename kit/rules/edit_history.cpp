// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/edit_history.h"

namespace zepa {

namespace {

/// Lets `earlier` reach to where `later` leads.
void extend(EditStep& earlier, const EditStep& later)
{
    if (auto* rules = std::get_if<RuleChange>(&earlier.change))
        rules->after = std::get<RuleChange>(later.change).after;
    else
        std::get<SettingChange>(earlier.change).after = std::get<SettingChange>(later.change).after;
    earlier.text = later.text;
}

} // namespace

QString EditStep::subject() const
{
    if (const auto* rules = std::get_if<RuleChange>(&change))
        return rules->type;
    return std::get<SettingChange>(change).setting;
}

void EditHistory::add(const EditStep& step)
{
    const bool merges = canUndo() && !canRedo() && !step.mergeKey.isEmpty() && toUndo().mergeKey == step.mergeKey;
    if (merges) {
        extend(m_steps.last(), step);
        return;
    }
    m_steps.resize(m_next);
    m_steps.append(step);
    ++m_next;
}

void EditHistory::forget(const QString& subject)
{
    for (qsizetype i = m_steps.size() - 1; i >= 0; --i) {
        if (m_steps[i].subject() != subject)
            continue;
        m_steps.removeAt(i);
        if (i < m_next)
            --m_next;
    }
}

} // namespace zepa
