#include "ReadOnlyFolder.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orr::test {

namespace fs = std::filesystem;

ReadOnlyFolder::ReadOnlyFolder(fs::path folder) : folder_(std::move(folder)) {
    fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec);
    if (geteuid() == 0) setImmutable(true);
    const fs::path probe = folder_ / "probe";
    const int fd = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    enforced_ = fd < 0;
    if (fd >= 0) {
        close(fd);
        unlink(probe.c_str());
    }
}

ReadOnlyFolder::~ReadOnlyFolder() {
    if (geteuid() == 0) setImmutable(false);
    std::error_code ec;
    fs::permissions(folder_, fs::perms::owner_all, ec);
}

void ReadOnlyFolder::setImmutable(bool on) {
    const int fd = open(folder_.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    int flags = 0;
    if (ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0) {
        flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        ioctl(fd, FS_IOC_SETFLAGS, &flags);
    }
    close(fd);
}

}  // namespace orr::test
