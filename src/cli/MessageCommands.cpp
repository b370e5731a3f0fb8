// The planet message commands of orrerion-cli. None yet: the table stays empty until the message
// commands are written.

#include "Command.h"

namespace orr::cli {

std::vector<CommandSpec> messageCommands() {
    return {};
}

}  // namespace orr::cli
