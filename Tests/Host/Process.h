#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

#include "Support/FileDescriptor.h"

/** The program under test. */
std::string GetMorvanePath();

struct FProcessResult
{
	/** The exit status; 128 and the signal's number when a signal ended the process. */
	int Status = -1;
	std::string Output;
	std::string Errors;
};

/** Runs the program to its end, with Input on its standard input. */
FProcessResult RunMorvane(const std::vector<std::string>& Words, const std::string& Input = {});

/** The next line without its end; empty after ten seconds or at the end. Pending keeps what came behind it. */
std::string ReceiveLine(int Handle, std::string& Pending);

/** The program as a process to talk to. Ends it, if need be with a signal, when it goes. */
class FMorvaneProcess
{
public:
	explicit FMorvaneProcess(const std::vector<std::string>& Words);
	~FMorvaneProcess();
	FMorvaneProcess(const FMorvaneProcess&) = delete;
	FMorvaneProcess& operator=(const FMorvaneProcess&) = delete;

	void Send(const std::string& Text) const;
	/** The next line of its output; empty after ten seconds or at the end. */
	std::string Receive();
	void HangUp() { Input.Reset(); }
	void Signal(int Number) const;
	/** Waits for the end. */
	int Wait();

private:
	FFileDescriptor Input;
	FFileDescriptor Output;
	std::string Pending;
	pid_t Id = -1;
};
