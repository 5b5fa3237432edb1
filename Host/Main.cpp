#include <string>
#include <vector>

#include "Boot/EditorSession.h"
#include "Cli/CommandLine.h"
#include "Server/ResultOutput.h"

int main(int ArgumentCount, char** Arguments)
{
	const FResultOutput Output;
	const std::vector<std::string> Words(Arguments + 1, Arguments + ArgumentCount);
	return RunCommandLine(Words, Output, &MakeEditorSession);
}
