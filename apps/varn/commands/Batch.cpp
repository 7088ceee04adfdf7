#include "Context.h"
#include "ShellWords.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace varn::driver {

namespace {

/// Knows for as long as it lives that lines of a batch are run.
class BatchScope
{
  public:
    explicit BatchScope(Context& context) : context(context) { context.setInBatch(true); }
    ~BatchScope() { context.setInBatch(false); }
    BatchScope(const BatchScope&) = delete;
    BatchScope& operator=(const BatchScope&) = delete;

  private:
    Context& context;
};

/// The lines of a file, as soon as each is there; without mark and line ends.
class LineReader
{
  public:
    explicit LineReader(std::FILE* file) : file(file) {}
    ~LineReader() { std::free(buffer); }
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    std::optional<std::string_view> next()
    {
        const ssize_t size = ::getline(&buffer, &room, file);
        if (size < 0)
            return std::nullopt;
        std::string_view line(buffer, static_cast<std::size_t>(size));
        if (number++ == 0 && line.starts_with(kMark))
            line.remove_prefix(kMark.size());
        while (line.ends_with('\n') || line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }
    /// Of the line last read, from 1.
    int lineNumber() const { return number; }

  private:
    static constexpr std::string_view kMark = "\xEF\xBB\xBF";

    std::FILE* file;
    char* buffer = nullptr;
    std::size_t room = 0;
    int number = 0;
};

Status runLine(Context& context, std::string_view line)
{
    try {
        const std::vector<std::string> words = splitShellWords(line);
        return words.empty() ? Status::Done : context.run(words);
    } catch (const QuotingError& fault) {
        context.complain(fault.what());
        return Status::Usage;
    }
}

/// The status is that of the first line that failed. Every line's output is out before the next
/// line is read, so a program can talk to a batch through pipes.
Status runLines(Context& context, std::FILE* file, const std::string& name, bool keepsGoing)
{
    Status first = Status::Done;
    LineReader lines(file);
    while (!context.isEnded()) {
        const auto line = lines.next();
        if (!line)
            break;
        const Status status = runLine(context, *line);
        context.out().flush();
        if (status == Status::Done)
            continue;
        context.complain(name + ":" + std::to_string(lines.lineNumber()) + ": failed");
        if (first == Status::Done)
            first = status;
        if (!keepsGoing)
            break;
    }
    if (std::ferror(file)) {
        context.complain(name + ": the file cannot be read");
        return first == Status::Done ? Status::Failed : first;
    }
    return first;
}

Status batch(Context& context, const Arguments& arguments)
{
    if (context.isInBatch())
        throw UsageError("a batch cannot stand in a batch", findDriverCommand("batch"));
    const BatchScope scope(context);
    const bool keepsGoing = arguments.has("--keep-going");
    const std::string name = arguments.utf8("FILE", "-");
    if (name == "-")
        return runLines(context, stdin, "standard input", keepsGoing);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "rb"),
                                                               std::fclose);
    if (!file) {
        context.complainUnread(fromUtf8(name));
        return Status::Failed;
    }
    return runLines(context, file.get(), name, keepsGoing);
}

constexpr Argument kWords[] = {
    {"FILE", "the commands, one a line; else, or of \"-\", standard input", Takes::File,
     Occurs::Optional},
};
constexpr Option kOptions[] = {
    {.name = "--keep-going", .help = "go on behind a line that failed"},
};

constexpr Command kCommands[] = {
    {.words = "batch",
     .summary = "run commands, one a line, in one session",
     .arguments = kWords,
     .options = kOptions,
     .run = batch,
     .details = "Words are quoted as in a shell; a # at the start of a word makes the rest of the "
                "line a comment. The first line that fails ends the batch with its status; with "
                "--keep-going the other lines are run all the same.",
     .examples = "batch build.txt\nbatch --keep-going < checks.txt"},
};

} // namespace

std::span<const Command> batchCommands()
{
    return kCommands;
}

} // namespace varn::driver
