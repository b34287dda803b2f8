// What the program and its decoder process say to each other: requests and notes over a socket, answers in memory that
// both see. Whatever comes back is checked as if a stranger had written it, for a file may have taken the process over.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QImageIOHandler>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

namespace decoder {

/// Program and process that speak different versions have nothing to say to each other.
constexpr quint32 kVersion = 2;
/// Descriptors that the process finds open beside the standard streams: the socket (SOCK_SEQPACKET) and the memory in
/// which its answers stand.
constexpr int kSocketNumber = 3;
constexpr int kArenaNumber = 4;
constexpr qint64 kArenaBytes = qint64(4) << 20;
/// Room for a whole picture; pages of it that nobody touches cost nothing.
constexpr qint64 kWholePictureBytes = qint64(512) << 20;
/// A process that was asked nothing for so long ends.
constexpr int kIdleSeconds = 60;
/// Icons are at most so wide and so high.
constexpr int kIconSide = 32;

enum class Task : quint32 {
    Judge, ///< does the JPEG decode, how large is it, what does the decoder say of it, and an icon
    View,  ///< a JPEG fitted into a box
    Show,  ///< the same as viewers show it, see Client::show
    Heic,  ///< the main picture of a HEIC, fitted into a box where one is given, with its colour profile
    Trial, ///< misbehave as `width` says (see Trial), so that a test can watch
};

enum class Trial : qint32 {
    Escape, ///< try to get at files, network, other processes; the answer's warnings name what could be done
    Break,  ///< die
    Spin,   ///< never answer
    Hoard,  ///< take memory without end
    Lie,    ///< answer with bytes that are no answer
};

/// Sent as it stands; a file to be decoded and memory for its picture come with it as descriptors, in this order.
struct Request
{
    quint32 version = kVersion;
    Task task = Task::Judge;
    quint64 number = 0;
    quint64 fileBytes = 0;    ///< size of the file
    quint64 memory = 0;       ///< bytes that the picture and what the decoder keeps beside it may take
    quint64 pictureBytes = 0; ///< room in the memory for the picture; 0: no such descriptor
    qint32 width = 0;         ///< box of View, Show and Heic
    qint32 height = 0;
};

/// Says that the answer to a request stands in the arena; with number 0 that the process is ready.
struct Note
{
    quint64 number = 0;
    quint64 bytes = 0;     ///< of the answer; of a process that is ready: the addresses that it uses
    quint32 version = 0;   ///< of a process that is ready
    quint32 sheltered = 0; ///< of a process that is ready: 1 where the system refuses it all but decoding
};

enum class Ending {
    Told,     ///< the process answered
    BrokeOff, ///< it died, or answered with nonsense
    TookTooLong,
    Stopped,    ///< broken off because the caller asked for it: nothing is known of the file
    NotStarted, ///< no process could be had
};

struct Answer
{
    Ending ending = Ending::Told;
    bool opens = false;
    QSize size{0, 0};          ///< of the whole picture, turned or not; 0 x 0 where it doesn't open
    bool severalScans = false; ///< of a JPEG: its picture comes in more than one scan
    QStringList warnings;      ///< what the decoder said, in order: at most 100 of at most 1,000 letters
    QString problem;           ///< one line why there is no picture, where the decoder itself says nothing
    QImage icon;               ///< of Judge
    QImage picture;            ///< of View, Show and Heic
    QByteArray profile;        ///< ICC profile of the picture of Show and Heic, empty where it has none
    /// Of Show: how the picture was turned.
    QImageIOHandler::Transformations turn = QImageIOHandler::TransformationNone;
};

/// The answer but for its picture, of which only the shape is told; at most kArenaBytes long.
QByteArray pack(const Answer &answer);
/// Gives the first so many bytes of the memory for the picture; null if they can't be had.
using Pixels = std::function<const uchar *(quint64 bytes)>;
/// Takes an answer apart. `answer.picture` becomes a copy of the pixels, which may take `room` bytes. False, with
/// `answer` as it was, for anything that pack can't have made, and where there is no memory for the picture.
bool unpack(const QByteArray &bytes, quint64 room, const Pixels &pixels, Answer &answer);

/// Mirrored and turned as told, in this order.
QImage turned(const QImage &image, QImageIOHandler::Transformations turn);

/// Bytes of a picture's pixels in memory, rows padded as QImage pads them.
quint64 pixelBytes(const QImage &image);

} // namespace decoder
