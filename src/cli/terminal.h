#pragma once

// Whether the program's standard error stream is a terminal, where a command shows its progress.

namespace zantor {

bool StandardErrorIsTerminal();

}  // namespace zantor
