#pragma once
// The program's stage pictures, icons and sounds, drawn and synthesised in code.

#include <QByteArray>
#include <QImage>
#include <QString>

namespace Artwork {

// 817 x 390: the Record page (a meadow by day) and the audio stage (a little theatre).
QImage RecordStage();
QImage AudioStage();

// The still pictures that invite the pupil to press Start: 225 x 178 and 218 x 183.
// The invitations in the Record and audio stages; the German pictures take German texts.
QImage StartInvitation(const QString &title = QStringLiteral("Ready?"),
                       const QString &text = QStringLiteral("Press Start, then click a Zorvane as soon as it pops up!"));
QImage AudioInvitation(const QString &title = QStringLiteral("Listen!"),
                       const QString &text =
                           QStringLiteral("Press Start, then click the Zorvane the moment you hear the sound."));

// Seven 32 x 32 cells side by side (Open, Clear, Save, Record, Averages, Groups, Compare) on
// pure green (0x00FF00), the colour that is masked out.
QImage ToolbarStrip();
inline constexpr QRgb kToolbarMask = 0xFF00FF00;

// The program's icon with transparency, 256 x 256 unless drawn for a smaller edge (the
// smaller sizes of a desktop's icon theme).
QImage ProgramIcon(int size = 256);

// The four wave files (8-bit mono, 11025 Hz): 1 a chime, 2 the looping cue, 3 the hit,
// 4 the walker's entrance.
QByteArray Sound(int number);

} // namespace Artwork
