// The socket between the program and its decoder process, and the memory that both see.
#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>

namespace decoder {

/// Owns an open descriptor; -1 is none.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor &&other) noexcept : m_number(other.release()) {}
    Descriptor &operator=(Descriptor &&other) noexcept;
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    int release();
    void reset();

private:
    int m_number = -1;
};

/// Pages of memory that lie in no file and can be handed to another process.
class SharedMemory
{
public:
    SharedMemory() = default;
    ~SharedMemory() { unmap(); }
    SharedMemory(const SharedMemory &) = delete;
    SharedMemory &operator=(const SharedMemory &) = delete;

    /// Makes memory of so many bytes whose size nobody can change any more: else the other side could take pages away
    /// while this one reads them. False if the system refuses.
    bool create(const char *name, qint64 bytes);
    /// The first `bytes` of it; null if they can't be had. A later call gives up what the earlier one gave.
    uchar *map(quint64 bytes) { return map(m_memory.number(), bytes); }
    /// The same of memory that came from elsewhere.
    uchar *map(int number, quint64 bytes);
    void unmap();
    int number() const { return m_memory.number(); }

private:
    Descriptor m_memory;
    void *m_mapped = nullptr;
    size_t m_bytes = 0;
};

/// Descriptors that go with one message.
using Companions = std::array<Descriptor, 2>;

/// Sends one message with the descriptors that are not -1, in order. False if the other side is gone.
bool sendMessage(int socket, const void *message, size_t bytes, const std::array<int, 2> &companions = {-1, -1});
/// Receives one message of exactly `bytes` bytes, waiting for it. False if the other side is gone or sends anything else.
bool receiveMessage(int socket, void *message, size_t bytes, Companions *companions = nullptr);

} // namespace decoder
