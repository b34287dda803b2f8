#include "decoder/Channel.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace decoder {

Descriptor &Descriptor::operator=(Descriptor &&other) noexcept
{
    if (this == &other) return *this;
    reset();
    m_number = other.release();
    return *this;
}

int Descriptor::release()
{
    const int number = m_number;
    m_number = -1;
    return number;
}

void Descriptor::reset()
{
    if (m_number >= 0) ::close(m_number);
    m_number = -1;
}

bool SharedMemory::create(const char *name, qint64 bytes)
{
    unmap();
    m_memory = Descriptor(::memfd_create(name, MFD_CLOEXEC | MFD_ALLOW_SEALING));
    return m_memory.isOpen() && ::ftruncate(m_memory.number(), off_t(bytes)) == 0
        && ::fcntl(m_memory.number(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0;
}

uchar *SharedMemory::map(int number, quint64 bytes)
{
    unmap();
    void *mapped = ::mmap(nullptr, size_t(bytes), PROT_READ | PROT_WRITE, MAP_SHARED, number, 0);
    if (mapped == MAP_FAILED) return nullptr;
    m_mapped = mapped;
    m_bytes = size_t(bytes);
    return static_cast<uchar *>(mapped);
}

void SharedMemory::unmap()
{
    if (m_mapped) ::munmap(m_mapped, m_bytes);
    m_mapped = nullptr;
}

namespace {

struct Control
{
    alignas(cmsghdr) char bytes[CMSG_SPACE(2 * sizeof(int))] = {};
};

msghdr envelope(iovec &part, Control &control)
{
    msghdr head = {};
    head.msg_iov = &part;
    head.msg_iovlen = 1;
    head.msg_control = control.bytes;
    head.msg_controllen = sizeof control.bytes;
    return head;
}

} // namespace

bool sendMessage(int socket, const void *message, size_t bytes, const std::array<int, 2> &companions)
{
    int numbers[2] = {};
    size_t count = 0;
    for (const int number : companions)
        if (number >= 0) numbers[count++] = number;
    iovec part{const_cast<void *>(message), bytes};
    Control control;
    msghdr head = envelope(part, control);
    if (count == 0) head.msg_control = nullptr;
    head.msg_controllen = count == 0 ? 0 : CMSG_SPACE(count * sizeof(int));
    if (cmsghdr *field = CMSG_FIRSTHDR(&head)) {
        field->cmsg_level = SOL_SOCKET;
        field->cmsg_type = SCM_RIGHTS;
        field->cmsg_len = CMSG_LEN(count * sizeof(int));
        std::memcpy(CMSG_DATA(field), numbers, count * sizeof(int));
    }
    ssize_t sent = 0;
    do sent = ::sendmsg(socket, &head, MSG_NOSIGNAL);
    while (sent < 0 && errno == EINTR);
    return sent == ssize_t(bytes);
}

bool receiveMessage(int socket, void *message, size_t bytes, Companions *companions)
{
    iovec part{message, bytes};
    Control control;
    msghdr head = envelope(part, control);
    ssize_t got = 0;
    do got = ::recvmsg(socket, &head, MSG_CMSG_CLOEXEC);
    while (got < 0 && errno == EINTR);
    if (got < 0) return false;
    // What came is owned before anything else is looked at, so that no descriptor stays open unknown to anybody.
    Companions came;
    size_t count = 0;
    for (cmsghdr *field = CMSG_FIRSTHDR(&head); field; field = CMSG_NXTHDR(&head, field)) {
        if (field->cmsg_level != SOL_SOCKET || field->cmsg_type != SCM_RIGHTS) continue;
        for (size_t at = 0; CMSG_LEN((at + 1) * sizeof(int)) <= field->cmsg_len; ++at) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(field) + at * sizeof(int), sizeof number);
            Descriptor owned(number);
            if (count < came.size()) came[count++] = std::move(owned);
        }
    }
    if (companions) *companions = std::move(came);
    return got == ssize_t(bytes) && (head.msg_flags & (MSG_TRUNC | MSG_CTRUNC)) == 0;
}

} // namespace decoder
