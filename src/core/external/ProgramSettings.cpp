#include "external/ProgramSettings.h"

#include "external/CommandLine.h"

namespace orr::programs {

std::string defaultPaintProgram() {
#ifdef _WIN32
    return "C:\\Program Files\\Accessories\\MsPaint.exe";
#else
    for (const char* candidate : {"kolourpaint", "gimp", "pinta", "mtpaint"})
        if (findProgram(candidate)) return candidate;
    return "kolourpaint";
#endif
}

std::string defaultPaintOptions() {
    return "\"%1\"";
}

std::string defaultZipProgram() {
    return {};
}

std::string defaultZipOptions() {
    return "-min -a \"%1.zip\" \"%1\"";
}

std::string defaultGameLauncher() {
#ifdef _WIN32
    return {};
#else
    return "wine";
#endif
}

std::string missingProgramMessage(const std::string& program) {
    return "Cannot find the program '" + program + "'.";
}

}  // namespace orr::programs
