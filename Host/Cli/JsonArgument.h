#pragma once

#include <optional>
#include <string>

/**
 * The text that an argument of the form JSON, - or @FILE stands for: itself, standard input, or a file. Nothing, after
 * a complaint on standard error, when it cannot be read.
 */
std::optional<std::string> ReadJsonArgument(const std::string& Argument);

/** The bytes of a file, or of standard input for "-". Nothing, after a complaint, when it cannot be read. */
std::optional<std::string> ReadInput(const std::string& FileOrDash);
