#include "external/ZipWriter.h"

#include <zip.h>

#include <algorithm>
#include <system_error>
#include <vector>

#include "store/FileIo.h"

namespace orr {

namespace fs = std::filesystem;

namespace {

bool fail(std::string* error, const fs::path& archive, const std::string& reason) {
    if (error)
        *error = "The archive " + quotedPath(archive) + " could not be written (" + reason + ").";
    return false;
}

}  // namespace

bool zipFolder(const fs::path& folder, const fs::path& archive, std::string* error) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError)) files.push_back(it->path());
    }
    if (ec) return fail(error, archive, ec.message());
    std::sort(files.begin(), files.end());

    int code = 0;
    zip_t* zip = zip_open(archive.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!zip) {
        zip_error_t reason;
        zip_error_init_with_code(&reason, code);
        const std::string text = zip_error_strerror(&reason);
        zip_error_fini(&reason);
        return fail(error, archive, text);
    }
    for (const fs::path& file : files) {
        zip_source_t* source = zip_source_file(zip, file.c_str(), 0, -1);
        if (!source || zip_file_add(zip, file.filename().c_str(), source, ZIP_FL_ENC_GUESS) < 0) {
            const std::string text = zip_strerror(zip);
            if (source) zip_source_free(source);
            zip_discard(zip);
            return fail(error, archive, text);
        }
    }
    // libzip writes a temporary file beside the archive and renames it when all went well.
    if (zip_close(zip) < 0) {
        const std::string text = zip_strerror(zip);
        zip_discard(zip);
        return fail(error, archive, text);
    }
    return true;
}

}  // namespace orr
