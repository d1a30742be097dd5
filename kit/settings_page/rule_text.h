// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/rules/rule_state.h"

#include <QString>

/// Rules in words: for tool tips and screen readers.
namespace zepa {

/// "no rule", "one rule", "3 rules".
QString ruleCountText(qsizetype count);

/// The values of the rule's settings: "sound file: bell.wav". Empty for a rule without settings.
QString settingsText(const RuleState& rule);

} // namespace zepa
