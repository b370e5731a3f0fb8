#include "external/GameLaunch.h"

#include "external/ProgramSettings.h"
#include "store/SystemName.h"
#include "text/Cp1252.h"

namespace orr {

std::optional<CommandLine> gameCommand(const GameFolder& folder, const std::string& key,
                                       std::string_view launcher, std::string* problem) {
    const auto refuse = [problem](std::string reason) -> std::optional<CommandLine> {
        if (problem) *problem = std::move(reason);
        return std::nullopt;
    };
    if (const std::optional<std::string> reason = StarArgumentProblem(key)) return refuse(*reason);
    const fs::path game = folder.executable();
    if (!folder.hasGameExecutable()) return refuse(programs::missingProgramMessage(game.string()));
    const std::string argument = "/star:" + text::cp1252ToUtf8(EncodeStarArgument(key));

    CommandLine command = splitCommandLine(launcher);
    if (command.program.empty()) return CommandLine{game.string(), {argument}};
    const std::optional<std::string> program = findProgram(command.program);
    if (!program) return refuse(programs::missingProgramMessage(command.program));
    command.program = *program;
    command.arguments.push_back(game.string());
    command.arguments.push_back(argument);
    return command;
}

}  // namespace orr
