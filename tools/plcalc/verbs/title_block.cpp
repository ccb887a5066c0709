#include "verbs/title_block.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "text/numbers.h"

namespace tool {
namespace {

// A title block has no more room.
constexpr std::size_t kMaxEntries = 12;
constexpr std::size_t kMaxBytes = 16384;

}  // namespace

void add_title(TitleBlock& block, const Place& place, const std::string& text)
{
    const std::size_t equals = text.find('=');
    const std::string key = equals == std::string::npos ? "" : trimmed(text.substr(0, equals));
    if (key.empty())
        throw Failure(ExitStatus::wrong_use, place,
                      "'" + trimmed(text) + "' is not an entry of a title block", "write it as Client=Rossi");
    const std::string value = trimmed(text.substr(equals + 1));
    const auto same =
        std::find_if(block.begin(), block.end(), [&](const auto& entry) { return entry.first == key; });
    if (same != block.end())
        same->second = value;
    else
        block.emplace_back(key, value);
    if (block.size() > kMaxEntries)
        throw Failure(ExitStatus::wrong_use, place, "the title block has more than 12 entries",
                      "leave some out");
}

TitleBlock read_title_block(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string content(kMaxBytes + 1, '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad() || (!stream.eof() && !stream) || content.find('\0') != std::string::npos)
        throw Failure(ExitStatus::unusable_input, {file, ""}, "the title block cannot be read",
                      "name a text file with lines such as Client=Rossi");
    if (content.size() > kMaxBytes)
        throw Failure(ExitStatus::unusable_input, {file, ""}, "the file is too long for a title block",
                      "name a text file with lines such as Client=Rossi");
    TitleBlock block;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        const std::string entry = trimmed(line);
        if (!entry.empty() && entry.front() != '#')
            add_title(block, {file, ""}, entry);
    }
    return block;
}

}  // namespace tool
