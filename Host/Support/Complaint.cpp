#include "Support/Complaint.h"

#include <cstdio>

void Complain(const std::string& Text)
{
	std::fprintf(stderr, "morvane: %s\n", Text.c_str());
}
