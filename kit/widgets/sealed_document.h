// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTextDocument>
#include <QVariant>

namespace zepa {

/// A document that shows only what was added to it. Qt's own would read the files that it names.
class SealedDocument final : public QTextDocument
{
public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

} // namespace zepa
