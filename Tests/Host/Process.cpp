#include "Host/Process.h"

#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Host/ServeText.h"

namespace ProcessPrivate
{
static pid_t Spawn(const std::vector<std::string>& Words, const int In, const int Out, const int Errors)
{
	std::string Program = GetMorvanePath();
	std::vector<std::string> Copies = Words;
	std::vector<char*> Arguments = {Program.data()};
	for (std::string& Word : Copies)
	{
		Arguments.push_back(Word.data());
	}
	Arguments.push_back(nullptr);
	posix_spawn_file_actions_t Actions;
	posix_spawn_file_actions_init(&Actions);
	posix_spawn_file_actions_adddup2(&Actions, In, STDIN_FILENO);
	posix_spawn_file_actions_adddup2(&Actions, Out, STDOUT_FILENO);
	if (Errors >= 0)
	{
		posix_spawn_file_actions_adddup2(&Actions, Errors, STDERR_FILENO);
	}
	pid_t Id = -1;
	EXPECT_EQ(posix_spawn(&Id, Program.c_str(), &Actions, nullptr, Arguments.data(), environ), 0) << Program;
	posix_spawn_file_actions_destroy(&Actions);
	return Id;
}

static int WaitFor(const pid_t Id)
{
	int Status = 0;
	EXPECT_EQ(waitpid(Id, &Status, 0), Id);
	return WIFSIGNALED(Status) ? 128 + WTERMSIG(Status) : WEXITSTATUS(Status);
}

static std::string ReadAll(const int Handle)
{
	std::string Text(static_cast<size_t>(lseek(Handle, 0, SEEK_END)), '\0');
	EXPECT_EQ(pread(Handle, Text.data(), Text.size(), 0), static_cast<ssize_t>(Text.size()));
	return Text;
}
} // namespace ProcessPrivate

std::string GetMorvanePath()
{
	return MORVANE_PROGRAM;
}

FProcessResult RunMorvane(const std::vector<std::string>& Words, const std::string& Input)
{
	const FFileDescriptor In(OpenTextFile(Input));
	const FFileDescriptor Out(memfd_create("output", MFD_CLOEXEC));
	const FFileDescriptor Errors(memfd_create("errors", MFD_CLOEXEC));
	FProcessResult Result;
	Result.Status = ProcessPrivate::WaitFor(ProcessPrivate::Spawn(Words, In.Get(), Out.Get(), Errors.Get()));
	Result.Output = ProcessPrivate::ReadAll(Out.Get());
	Result.Errors = ProcessPrivate::ReadAll(Errors.Get());
	return Result;
}

FMorvaneProcess::FMorvaneProcess(const std::vector<std::string>& Words)
{
	int In[2];
	int Out[2];
	EXPECT_EQ(pipe2(In, O_CLOEXEC), 0);
	EXPECT_EQ(pipe2(Out, O_CLOEXEC), 0);
	const FFileDescriptor TheirInput(In[0]);
	const FFileDescriptor TheirOutput(Out[1]);
	Input = FFileDescriptor(In[1]);
	Output = FFileDescriptor(Out[0]);
	Id = ProcessPrivate::Spawn(Words, TheirInput.Get(), TheirOutput.Get(), -1);
}

FMorvaneProcess::~FMorvaneProcess()
{
	if (Id > 0)
	{
		kill(Id, SIGKILL);
		Wait();
	}
}

void FMorvaneProcess::Send(const std::string& Text) const
{
	EXPECT_EQ(write(Input.Get(), Text.data(), Text.size()), static_cast<ssize_t>(Text.size()));
}

std::string ReceiveLine(const int Handle, std::string& Pending)
{
	while (Pending.find('\n') == std::string::npos)
	{
		pollfd Poll = {Handle, POLLIN, 0};
		char Buffer[4096];
		const ssize_t Count = poll(&Poll, 1, 10'000) > 0 ? read(Handle, Buffer, sizeof(Buffer)) : 0;
		if (Count <= 0)
		{
			return {};
		}
		Pending.append(Buffer, static_cast<size_t>(Count));
	}
	const std::string Line = Pending.substr(0, Pending.find('\n'));
	Pending.erase(0, Line.size() + 1);
	return Line;
}

std::string FMorvaneProcess::Receive()
{
	return ReceiveLine(Output.Get(), Pending);
}

void FMorvaneProcess::Signal(const int Number) const
{
	EXPECT_EQ(kill(Id, Number), 0);
}

int FMorvaneProcess::Wait()
{
	const int Status = ProcessPrivate::WaitFor(Id);
	Id = -1;
	return Status;
}
