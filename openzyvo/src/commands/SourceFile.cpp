#include "commands/SourceFile.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace oz::cmd {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class FileDescriptor {
public:
    explicit FileDescriptor(int fd)
        : m_fd(fd) {}
    ~FileDescriptor() {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

} // namespace

std::optional<std::string> readSourceFile(const std::string& path, std::string& why) {
    // Not blocking: opening a pipe with no writer would otherwise wait for one.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.get() < 0) {
        why = std::generic_category().message(errno);
        return std::nullopt;
    }
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        why = std::generic_category().message(errno);
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        why = "it is not a regular file";
        return std::nullopt;
    }
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > kMaxSourceFileBytes) {
        why = "it is larger than " + std::to_string(kMaxSourceFileBytes >> 20) +
              " MB, the most a script or scene file may hold";
        return std::nullopt;
    }
    std::string text;
    text.resize(static_cast<std::size_t>(size));
    std::size_t filled = 0;
    // The file may change while it is read; what is read stays within the bound.
    while (filled < text.size()) {
        const ssize_t got = ::read(file.get(), text.data() + filled, text.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            why = std::generic_category().message(errno);
            return std::nullopt;
        }
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    text.resize(filled);
    if (text.starts_with(kByteOrderMark))
        text.erase(0, kByteOrderMark.size());
    return text;
}

} // namespace oz::cmd
