// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/sound_edit.h"

#include "host/audio.h"
#include "kit/settings_page/sound_check.h"
#include "kit/widgets/plain_widgets.h"
#include "methods/sound_rule.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace zepa {

SoundEdit::SoundEdit(const ZepaField& field, QWidget* parent)
    : FieldEdit(parent), m_line(new QLineEdit(this)), m_warning(makePlainLabel(this))
{
    auto* play = new QPushButton(tr("&Play"));
    play->setObjectName(u"play"_s);
    play->setAccessibleName(tr("Play the sound"));
    auto* choose = new QPushButton(tr("C&hoose..."));
    choose->setObjectName(u"choose"_s);
    choose->setAccessibleName(tr("Choose a sound file"));
    for (QPushButton* button : {play, choose})
        button->setAutoDefault(false);

    m_line->setMinimumWidth(m_line->fontMetrics().averageCharWidth() * 16);
    auto* row = new QHBoxLayout;
    for (QWidget* part : std::initializer_list<QWidget*>{m_line, play, choose})
        row->addWidget(part);

    m_warning->setObjectName(u"soundWarning"_s);
    m_warning->setWordWrap(true);
    m_warning->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_warning);
    present(field, m_line);

    SoundEdit::setField(field);
    connect(m_line, &QLineEdit::editingFinished, this, &SoundEdit::finishTyping);
    connect(play, &QPushButton::clicked, this, &SoundEdit::play);
    connect(choose, &QPushButton::clicked, this, &SoundEdit::choose);
}

void SoundEdit::setField(const ZepaField& field)
{
    if (field.getText() != m_value || m_value.isNull())
        setValue(field.getText());
}

void SoundEdit::finishTyping()
{
    if (m_line->text() == m_shown)
        return;
    setValue(m_line->text());
    Q_EMIT edited(m_value);
}

void SoundEdit::play()
{
    ZepaAudio::getInstance()->playFile(ZepaSoundRule::pathOf(m_line->text() == m_shown ? m_value : m_line->text()));
}

void SoundEdit::choose()
{
    auto* dialog = new QFileDialog(this, tr("Choose a sound"), QFileInfo(ZepaSoundRule::pathOf(m_value)).path(),
                                   tr("Sounds (%1)").arg(soundNamePatterns().join(u' ')));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &SoundEdit::take);
    dialog->open();
}

/// A file that the user chose: taken over only when it can be played. The name says little about that.
void SoundEdit::take(const QString& path)
{
    checkSound(path, this, [this, path](bool plays) {
        if (!plays) {
            m_warning->setText(tr("%1 cannot be played, so it was not taken.").arg(QFileInfo(path).fileName()));
            m_warning->show();
            return;
        }
        // A sound of the theme goes with the theme.
        const QString theme = QFileInfo(ZepaSoundRule::pathOf(QString())).canonicalFilePath() + u'/';
        const QString whole = QFileInfo(path).canonicalFilePath();
        const QString value = whole.startsWith(theme) ? whole.mid(theme.size()) : path;
        if (value == m_value)
            return;
        setValue(value);
        Q_EMIT edited(m_value);
    });
}

void SoundEdit::setValue(const QString& value)
{
    m_value = value;
    m_line->setText(value);
    m_shown = m_line->text();
    showWhetherItPlays();
}

void SoundEdit::showWhetherItPlays()
{
    m_warning->hide();
    checkSound(ZepaSoundRule::pathOf(m_value), this, [this, value = m_value](bool plays) {
        if (value != m_value)
            return;
        m_warning->setText(tr("This file cannot be played."));
        m_warning->setVisible(!plays);
    });
}

} // namespace zepa
