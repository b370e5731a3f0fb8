#include "external/CommandLine.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "text/Text.h"

namespace orr {

namespace {

namespace fs = std::filesystem;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

#ifdef _WIN32
constexpr char kPathSeparator = ';';
constexpr std::string_view kFolderSeparators = "/\\";
#else
constexpr char kPathSeparator = ':';
constexpr std::string_view kFolderSeparators = "/";
#endif

bool isProgramFile(const fs::path& file, bool needExecutable) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error || !fs::is_regular_file(status)) return false;
#ifdef _WIN32
    (void)needExecutable;
    return true;
#else
    const fs::perms exec = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    return !needExecutable || (status.permissions() & exec) != fs::perms::none;
#endif
}

}  // namespace

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> words;
    std::size_t i = 0;
    const std::size_t n = text.size();
    for (;;) {
        while (i < n && isBlank(text[i])) ++i;
        if (i >= n) break;
        std::string word;
        bool quoted = false;
        while (i < n && (quoted || !isBlank(text[i]))) {
            const char c = text[i];
            if (c == '\\') {
                std::size_t end = i;
                while (end < n && text[end] == '\\') ++end;
                const std::size_t count = end - i;
                if (end < n && text[end] == '"') {
                    word.append(count / 2, '\\');
                    if (count % 2 == 1) {
                        word += '"';
                        ++end;
                    }
                } else {
                    word.append(count, '\\');
                }
                i = end;
            } else if (c == '"') {
                if (quoted && i + 1 < n && text[i + 1] == '"') {
                    word += '"';
                    i += 2;
                } else {
                    quoted = !quoted;
                    ++i;
                }
            } else {
                word += c;
                ++i;
            }
        }
        words.push_back(std::move(word));
    }
    return words;
}

CommandLine splitCommandLine(std::string_view line) {
    CommandLine split;
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    // The program's name knows no escapes: quotes only group, so "C:\Tools\" is a folder.
    bool quoted = false;
    for (; i < line.size() && (quoted || !isBlank(line[i])); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else
            split.program += line[i];
    }
    split.arguments = splitArguments(line.substr(i));
    return split;
}

std::vector<std::string> expandOptions(std::string_view options, std::string_view value) {
    std::vector<std::string> arguments = splitArguments(options);
    for (std::string& argument : arguments) argument = text::replaceAll(argument, "%1", value);
    return arguments;
}

std::optional<std::string> findProgram(std::string_view program,
                                       std::optional<std::string_view> searchPath) {
    if (program.empty()) return std::nullopt;
    if (program.find_first_of(kFolderSeparators) != std::string_view::npos) {
        if (isProgramFile(fs::path(program), false)) return std::string(program);
        return std::nullopt;
    }
    std::string path;
    if (searchPath) {
        path = *searchPath;
    } else if (const char* variable = std::getenv("PATH")) {
        path = variable;
    }
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find(kPathSeparator, start);
        if (end == std::string::npos) end = path.size();
        const std::string folder = path.substr(start, end - start);
        start = end + 1;
        if (folder.empty()) continue;  // never the current folder, where anything may lie
        std::vector<fs::path> candidates{fs::path(folder) / std::string(program)};
#ifdef _WIN32
        if (fs::path(program).extension().empty())
            candidates.push_back(fs::path(folder) / (std::string(program) + ".exe"));
#endif
        for (const fs::path& candidate : candidates)
            if (isProgramFile(candidate, true)) return candidate.string();
    }
    return std::nullopt;
}

}  // namespace orr
