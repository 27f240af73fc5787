// time_text_load DIRECTORY: loads the wizard text file of a directory once, prints the nanoseconds.
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: time_text_load DIRECTORY\n");
        return 2;
    }
    krt550::SetWizardDirectory(QString::fromLocal8Bit(argv[1]));
    const auto start = std::chrono::steady_clock::now();
    if (!krt550::CWizardTextStore::Instance().EnsureWizardTexts())
        return 1;
    const std::chrono::nanoseconds taken = std::chrono::steady_clock::now() - start;
    std::printf("%lld\n", static_cast<long long>(taken.count()));
    return 0;
}
