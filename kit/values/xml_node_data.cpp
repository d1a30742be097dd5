// SPDX-License-Identifier: Apache-2.0
#include "kit/values/xml_node_data.h"

#include <QSet>

#include <utility>

ZepaXmlNodeData::~ZepaXmlNodeData()
{
    releaseChildren();
}

void ZepaXmlNodeData::append(const Pointer& child)
{
    children.append(child);
    ++child->parents;
}

void ZepaXmlNodeData::releaseChildren()
{
    QList<Pointer> doomed = std::exchange(children, {});
    while (!doomed.isEmpty()) {
        const Pointer node = doomed.takeLast();
        --node->parents;
        // The last handle goes at the end of this round: its children are taken away first, so that the destructor
        // finds none and goes no deeper.
        if (node->ref.loadRelaxed() == 1)
            doomed.append(std::exchange(node->children, {}));
    }
}

bool ZepaXmlNodeData::holds(const ZepaXmlNodeData* other) const
{
    if (other == this)
        return true;
    // Who stands in nobody's list stands in no list below this one: no need to look through a large tree.
    if (other->parents == 0)
        return false;
    QSet<const ZepaXmlNodeData*> seen;
    QList<const ZepaXmlNodeData*> open{this};
    while (!open.isEmpty()) {
        for (const Pointer& child : std::as_const(open.takeLast()->children)) {
            if (child.constData() == other)
                return true;
            if (!child->children.isEmpty() && !seen.contains(child.constData())) {
                seen.insert(child.constData());
                open.append(child.constData());
            }
        }
    }
    return false;
}
