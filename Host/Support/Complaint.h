#pragma once

#include <string>

/** A complaint on standard error. */
void Complain(const std::string& Text);
