// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHeaderView>

namespace zepa {

/// The names of the events beside their rows. Where there is no room for a name, its middle is left out: some differ
/// only at the end.
class EventHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit EventHeader(QWidget* parent = nullptr);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
};

} // namespace zepa
