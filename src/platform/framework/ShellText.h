// Words for the command line of a shell.
#pragma once

#include <string>

// A word for a POSIX shell, quoted unless it holds only letters, digits and marks that no shell reads. What
// MakeVisible changes is written as $'\033', which bash, zsh, ksh, mksh and busybox know; a shell without it,
// such as dash, then gets another word, but no command.
std::string ShellQuoted(const std::string& word);
