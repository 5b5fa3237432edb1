#include "Boot/EditorSession.h"
#include "Cli/CommandLine.h"

int main(int NumWords, char** Words)
{
	const FResultOutput Output;
	return RunCommandLine(std::vector<std::string>(Words + 1, Words + NumWords), Output, &MakeEditorSession);
}
