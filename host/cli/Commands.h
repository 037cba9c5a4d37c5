#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace zanhost {

/// What the program was told to do; gives its exit status. Faults pass as exceptions.
using TRun = std::function<int()>;

// Each adds one command to the program. When the command is chosen, it puts its work into `run`, which must
// outlive the parsing.
void AddServeCommand(CLI::App& program, TRun& run);
void AddSchemaCommand(CLI::App& program, TRun& run);
void AddSampleCommand(CLI::App& program, TRun& run);
void AddFunctionsCommand(CLI::App& program, TRun& run);
void AddCallCommand(CLI::App& program, TRun& run);
void AddAskCommand(CLI::App& program, TRun& run);
void AddScriptCommand(CLI::App& program, TRun& run);
void AddWorkerCommand(CLI::App& program, TRun& run);
void AddAnswerCommand(CLI::App& program, TRun& run);
void AddPasswdCommand(CLI::App& program, TRun& run);
void AddBackupCommand(CLI::App& program, TRun& run);
void AddRestrictedAccountCommand(CLI::App& program, TRun& run);
void AddTokenCommand(CLI::App& program, TRun& run);

}  // namespace zanhost
