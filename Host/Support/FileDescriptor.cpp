#include "Support/FileDescriptor.h"

#include <utility>

#include <unistd.h>

FFileDescriptor::FFileDescriptor(const int InHandle)
	: Handle(InHandle)
{
}

FFileDescriptor::FFileDescriptor(FFileDescriptor&& Other) noexcept
	: Handle(std::exchange(Other.Handle, -1))
{
}

FFileDescriptor& FFileDescriptor::operator=(FFileDescriptor&& Other) noexcept
{
	std::swap(Handle, Other.Handle);
	return *this;
}

FFileDescriptor::~FFileDescriptor()
{
	Reset();
}

void FFileDescriptor::Reset()
{
	if (IsValid())
	{
		close(std::exchange(Handle, -1));
	}
}
