// Starts Zentrik and the empty program in turn, each until its first screen is painted, and prints the medians and
// their ratio. Uses the display, or none: QT_QPA_PLATFORM=offscreen bench_start [ROUNDS]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Runs {
    std::vector<double> Milliseconds, Megabytes;
};

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// One start. False when the program can't be started or fails.
bool Measure(const std::vector<std::string> &command, Runs *to) {
    std::vector<char *> words;
    for (const std::string &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(words[0], words.data());
        _exit(127);
    }
    int status = 0;
    rusage used{};
    if (child < 0 || wait4(child, &status, 0, &used) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return false;
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
    to->Milliseconds.push_back(taken.count());
    to->Megabytes.push_back(static_cast<double>(used.ru_maxrss) / 1024);
    return true;
}

} // namespace

int main(int count, char **words) {
    const int rounds = count > 1 ? std::max(1, atoi(words[1])) : 21;
    const std::filesystem::path root =
        std::filesystem::temp_directory_path() / ("zentrik-bench-" + std::to_string(getpid()));
    const std::vector<std::string> program = {ZENTRIK, "--root", root.string(), "--scale", "2", "--quit-after-paint"},
                                   reference = {EMPTY};
    Runs zentrik, empty, unused;
    bool good =
        Measure(program, &unused) && Measure(reference, &unused); // the first run makes the data and warms the disk
    for (int round = 0; good && round < rounds; ++round)
        good = Measure(reference, &empty) && Measure(program, &zentrik);
    std::filesystem::remove_all(root);
    if (!good) {
        fprintf(stderr, "bench_start: a program did not start; is there a display?\n");
        return 1;
    }
    const double ours = Median(zentrik.Milliseconds), theirs = Median(empty.Milliseconds);
    const double oursPeak = Median(zentrik.Megabytes), theirsPeak = Median(empty.Megabytes);
    printf("start to first screen: %.1f ms, empty program %.1f ms, ratio %.2f (to reach: 1.5)\n", ours, theirs,
           ours / theirs);
    printf("peak memory: %.1f MB, empty program %.1f MB, %.1f MB above it (to reach: 20)\n", oursPeak, theirsPeak,
           oursPeak - theirsPeak);
    return 0;
}
