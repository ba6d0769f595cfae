// SPDX-License-Identifier: GPL-3.0-or-later
//
// A scripted stand-in for the metadata tool. It records every byte that it receives and answers as
// the files in the folder named by KELVRA_STAND_IN say; scripted_tool.h describes these files.

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace
{

std::string folder;

bool exists(const std::string &path)
{
    return std::filesystem::exists(std::filesystem::u8path(path));
}

std::string contents(const std::string &path)
{
    std::ifstream file(std::filesystem::u8path(path), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void write_all(std::FILE *stream, const std::string &bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size() ||
        std::fflush(stream) != 0)
        std::exit(1);
}

void append(const std::string &name, const std::string &bytes)
{
    std::ofstream(folder + "/" + name, std::ios::binary | std::ios::app) << bytes;
}

/// `text` with \n, \r, \t, \0, \\ and \xHH replaced by the characters they mean.
std::string unescaped(const std::string &text)
{
    static const std::map<char, char> escapes = {
        {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'0', '\0'}, {'\\', '\\'}};
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
        } else if (text.at(++i) == 'x') {
            plain += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            plain += escapes.at(text[i]);
        }
    }
    return plain;
}

/// Waits until the test has put a file of this name into the folder, then removes the file.
void await(const std::string &name)
{
    const std::string path = folder + "/" + name;
    while (std::remove(path.c_str()) != 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

std::string file_name(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

/// The photo of a request: the line after an empty one, so that a name may begin with a dash;
/// without an empty line, the first line that isn't an option.
std::string photo_of(const std::vector<std::string> &request)
{
    for (std::size_t i = 0; i + 1 < request.size(); ++i) {
        if (request[i].empty())
            return request[i + 1];
    }
    return "";
}

void answer(const std::vector<std::string> &request)
{
    bool writes = false;
    for (const std::string &line : request)
        writes = writes || line == "-overwrite_original_in_place";
    const std::string name = file_name(photo_of(request));
    std::string reply;
    if (!writes)
        reply = contents(folder + "/tags/" + name);
    else if (exists(folder + "/failing/" + name))
        reply = "    0 image files updated\n    1 files weren't updated due to errors\n";
    else
        reply = "    1 image files updated\n";
    write_all(stdout, reply + "{ready}\n");
}

void run_action(const std::string &line, const std::vector<std::string> &request)
{
    const std::size_t space = line.find(' ');
    const std::string verb = line.substr(0, space);
    const std::string rest = space == std::string::npos ? "" : line.substr(space + 1);
    if (verb == "out")
        write_all(stdout, unescaped(rest));
    else if (verb == "err")
        write_all(stderr, unescaped(rest));
    else if (verb == "fill")
        write_all(stdout, std::string(std::stoul(rest), 'x'));
    else if (verb == "fill_err")
        write_all(stderr, std::string(std::stoul(rest), 'x'));
    else if (verb == "wait")
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(rest)));
    else if (verb == "touch")
        append(rest, "");
    else if (verb == "await")
        await(rest);
    else if (verb == "answer")
        answer(request);
    else if (verb == "signal")
        std::raise(std::stoi(rest));
    else if (verb == "exit")
        std::_Exit(std::stoi(rest));
    else if (verb == "hang")
        for (;;)
            std::this_thread::sleep_for(std::chrono::hours(1));
    else
        append("unknown_actions", line + "\n");
}

/// @param request  the request to answer; empty if there is none
void run_script(const std::string &script, const std::vector<std::string> &request)
{
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);)
        run_action(line, request);
}

void serve(const std::vector<std::string> &request, int number)
{
    const std::string next = folder + "/script/next";
    const std::string numbered = folder + "/script/" + std::to_string(number);
    if (exists(next)) {
        const std::string script = contents(next);
        std::remove(next.c_str());
        run_script(script, request);
    } else if (exists(numbered)) {
        run_script(contents(numbered), request);
    } else {
        answer(request);
    }
}

void quit()
{
    const std::string script = folder + "/script/quit";
    if (exists(script))
        run_script(contents(script), {});
    std::exit(0);
}

}  // namespace

int main(int argc, char **argv)
{
    const char *named_folder = std::getenv("KELVRA_STAND_IN");
    if (!named_folder)
        return 2;
    folder = named_folder;
    for (int i = 1; i < argc; ++i)
        append("arguments", std::string(argv[i]) + "\n");
    append("starts", std::to_string(getpid()) + "\n");
    if (exists(folder + "/script/start"))
        run_script(contents(folder + "/script/start"), {});

    std::string pending;
    std::vector<std::string> request;
    int number = 0;
    char buffer[65536];
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0)
            return 0;
        const std::string bytes(buffer, static_cast<std::size_t>(count));
        append("input", bytes);
        pending += bytes;
        for (std::size_t end = pending.find('\n'); end != std::string::npos;
             end = pending.find('\n')) {
            request.push_back(pending.substr(0, end));
            pending.erase(0, end + 1);
            const std::size_t size = request.size();
            if (size >= 2 && request[size - 2] == "-stay_open" && request[size - 1] == "False")
                quit();
            if (request.back() == "-execute") {
                serve(request, ++number);
                request.clear();
            }
        }
    }
}
