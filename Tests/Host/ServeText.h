#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ToolFace/ToolHost.h"

/** Serves Input from its first byte to its end and answers the lines that came back. */
std::vector<std::string> ServeText(IToolHost& Tools, std::string_view Input);

/** The lines with a newline behind each, for one comparison. */
std::string JoinLines(const std::vector<std::string>& Lines);

/** A file without a name that holds Content, read from its start. The caller closes it. */
int OpenTextFile(std::string_view Content);
