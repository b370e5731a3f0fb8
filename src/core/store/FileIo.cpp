#include "store/FileIo.h"

#include <atomic>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace orr {

namespace {

bool fail(std::string* error, std::string message) {
    if (error) *error = std::move(message);
    return false;
}

std::string systemReason(int code) {
    return std::strerror(code);
}

int failingOperation = 0;
int operationsSeen = 0;

// Counts a file operation; true when a test wants this one to fail.
bool injectedFailure() {
    ++operationsSeen;
    return failingOperation != 0 && operationsSeen == failingOperation;
}

// Flushes a folder's entries (a rename) to disk.
void syncFolder(const fs::path& folder) {
#ifndef _WIN32
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
#else
    (void)folder;
#endif
}

// A name no other writer uses: hidden, beside the target, and clearly a leftover if it stays.
fs::path temporaryNameFor(const fs::path& target) {
    static std::atomic<unsigned> counter{0};
    thread_local std::mt19937_64 random{
        std::random_device{}() ^
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, ".%08x%04x.tmp",
                  static_cast<unsigned>(random() & 0xFFFFFFFFu), counter++ & 0xFFFFu);
    std::string name = ".";
    name.append(target.filename().string()).append(suffix);
    return target.parent_path() / name;
}

// Writes through a symbolic link to the file it names, so the link itself stays.
fs::path resolveTarget(const fs::path& path) {
    std::error_code ec;
    if (fs::is_symlink(fs::symlink_status(path, ec))) {
        fs::path resolved = fs::weakly_canonical(path, ec);
        if (!ec) return resolved;
    }
    return path;
}

struct FileCloser {
    void operator()(std::FILE* file) const {
        if (file) std::fclose(file);
    }
};

// Creates a fresh temporary file beside `target`; retries when a name is taken.
std::FILE* createTemporary(const fs::path& target, fs::path& tempPath, int& reason) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        tempPath = temporaryNameFor(target);
        errno = 0;
        // "x": fail rather than reuse a file that already exists.
        if (std::FILE* file = std::fopen(tempPath.c_str(), "wbx")) return file;
        reason = errno;
        if (reason != EEXIST) return nullptr;
    }
    return nullptr;
}

bool writeAtomically(const fs::path& requested, std::string_view bytes,
                     const std::optional<fs::file_time_type>& time,
                     const std::optional<fs::perms>& permsForNewFile, std::string* error,
                     Durability durability) {
    const fs::path target = resolveTarget(requested);
    std::error_code ec;
    if (fs::is_directory(target, ec)) {
        return fail(error, "Could not write " + quotedPath(requested) + ": it is a folder.");
    }

    fs::path tempPath;
    int reason = 0;
    std::FILE* raw = createTemporary(target, tempPath, reason);
    if (!raw) {
        return fail(error, "Could not write " + quotedPath(requested) +
                               ": no temporary file can be created in its folder (" +
                               systemReason(reason) + ").");
    }
    std::unique_ptr<std::FILE, FileCloser> file(raw);
    auto abandon = [&](const std::string& what, int code) {
        file.reset();
        std::error_code ignored;
        fs::remove(tempPath, ignored);
        std::string message = "Could not write " + quotedPath(requested) + ": " + what;
        if (code != 0) message += " (" + systemReason(code) + ")";
        return fail(error, message + ".");
    };

    if (injectedFailure()) return abandon("writing failed", ENOSPC);
    errno = 0;
    if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        return abandon("writing failed", errno);
    }
    errno = 0;
    if (std::fflush(file.get()) != 0 || std::ferror(file.get())) {
        return abandon("writing failed", errno);
    }
#ifndef _WIN32
    if (durability == Durability::Durable && ::fsync(fileno(file.get())) != 0)
        return abandon("writing to the disk failed", errno);
#endif
    errno = 0;
    if (std::fclose(file.release()) != 0) return abandon("writing failed", errno);

    // Keep the permissions the file had. Some file systems (FAT copies of a game folder) refuse
    // permission changes altogether; the contents matter more, so that is not an error.
    const fs::file_status oldStatus = fs::status(target, ec);
    if (!ec && fs::exists(oldStatus)) {
        fs::permissions(tempPath, oldStatus.permissions(), ec);
    } else if (permsForNewFile) {
        fs::permissions(tempPath, *permsForNewFile, ec);
    }

    if (time) {
        fs::last_write_time(tempPath, *time, ec);
        if (ec) return abandon("its modification time cannot be set", ec.value());
    }

    if (injectedFailure()) return abandon("the new contents cannot replace it", EIO);
    fs::rename(tempPath, target, ec);
    if (ec) return abandon("the new contents cannot replace it", ec.value());
    if (durability == Durability::Durable) syncFolder(target.parent_path());
    return true;
}

}  // namespace

std::optional<std::string> readWholeFile(const fs::path& path, std::string* error) {
    std::error_code ec;
    if (fs::is_directory(path, ec)) {
        fail(error, "Could not read " + quotedPath(path) + ": it is a folder.");
        return std::nullopt;
    }
    errno = 0;
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        fail(error, "Could not read " + quotedPath(path) + " (" + systemReason(errno) + ").");
        return std::nullopt;
    }
    std::string bytes;
    const auto expected = fs::file_size(path, ec);
    if (!ec) bytes.reserve(static_cast<std::size_t>(expected));
    char buffer[65536];
    while (true) {
        const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get());
        bytes.append(buffer, got);
        if (got < sizeof buffer) break;
    }
    if (std::ferror(file.get())) {
        fail(error, "Could not read " + quotedPath(path) + " (" + systemReason(errno) + ").");
        return std::nullopt;
    }
    return bytes;
}

bool writeFileAtomically(const fs::path& path, std::string_view bytes, std::string* error,
                         Durability durability) {
    return writeAtomically(path, bytes, std::nullopt, std::nullopt, error, durability);
}

bool copyFileKeepingTime(const fs::path& from, const fs::path& to, std::string* error,
                         Durability durability) {
    std::string readError;
    const auto bytes = readWholeFile(from, &readError);
    if (!bytes) return fail(error, "Could not copy " + quotedPath(from) + ": " + readError);
    std::error_code ec;
    const auto time = fs::last_write_time(from, ec);
    if (ec) {
        return fail(error, "Could not copy " + quotedPath(from) +
                               ": its modification time cannot be read (" + ec.message() + ").");
    }
    const auto sourcePerms = fs::status(from, ec).permissions();
    return writeAtomically(to, *bytes, time,
                           ec ? std::nullopt : std::optional<fs::perms>(sourcePerms), error,
                           durability);
}

std::optional<std::string> temporaryTarget(std::string_view fileName) {
    // "." + target + "." + 12 hexadecimal digits + ".tmp", as temporaryNameFor makes them.
    constexpr std::size_t kRandom = 12;
    constexpr std::string_view kEnd = ".tmp";
    if (fileName.size() < 1 + 1 + 1 + kRandom + kEnd.size() || fileName[0] != '.' ||
        fileName.substr(fileName.size() - kEnd.size()) != kEnd)
        return std::nullopt;
    const std::size_t dot = fileName.size() - kEnd.size() - kRandom - 1;
    if (fileName[dot] != '.') return std::nullopt;
    for (char c : fileName.substr(dot + 1, kRandom)) {
        if (!std::isxdigit(static_cast<unsigned char>(c))) return std::nullopt;
    }
    return std::string(fileName.substr(1, dot - 1));
}

bool removeFile(const fs::path& path, std::string* error) {
    std::error_code ec;
    if (!fs::exists(fs::symlink_status(path, ec))) return true;
    if (injectedFailure()) ec = std::make_error_code(std::errc::io_error);
    if (!ec) fs::remove(path, ec);
    if (!ec) return true;
    return fail(error, "Could not delete " + quotedPath(path) + " (" + ec.message() + ").");
}

bool renameFile(const fs::path& from, const fs::path& to, std::string* error) {
    std::error_code ec;
    if (injectedFailure()) ec = std::make_error_code(std::errc::io_error);
    if (!ec) fs::rename(from, to, ec);
    if (!ec) return true;
    return fail(error, "Could not rename " + quotedPath(from) + " to " + quotedPath(to.filename()) +
                           " (" + ec.message() + ").");
}

void injectFileFailure(int n) {
    failingOperation = n;
    operationsSeen = 0;
}

int fileOperationsSince() {
    return operationsSeen;
}

std::optional<fs::file_time_type> modificationTime(const fs::path& path) {
    std::error_code ec;
    const auto time = fs::last_write_time(path, ec);
    if (ec) return std::nullopt;
    return time;
}

std::string quotedPath(const fs::path& path) {
    std::string text;
    text.append("\"").append(path.string()).append("\"");
    return text;
}

}  // namespace orr
