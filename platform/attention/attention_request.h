// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace attention {

/// What a request for attention does to the desktop.
class Effects
{
public:
    virtual ~Effects() = default;
    virtual void ask() = 0;
    virtual void withdraw() = 0;
};

/// When the desktop is asked for attention, and when that is taken back.
///
///     idle --request, not active--> requested --activated--> idle
///
/// A further request asks again: another window may be the one to ask by then.
class AttentionRequest
{
public:
    /// `effects` must outlive this object.
    explicit AttentionRequest(Effects& effects) : m_effects(effects) {}

    void request(bool applicationIsActive);
    /// The application became active: what was asked is withdrawn, once.
    void applicationActivated();

private:
    Effects& m_effects;
    bool m_requested = false;
};

} // namespace attention
