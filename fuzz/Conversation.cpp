// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// What the feedback program is told on its standard input, in pieces as they may arrive, and the address of a form.
#include "feedback/Conversation.h"

#include "feedback/FormAddress.h"
#include "fuzz/FuzzInput.h"

#include <QCoreApplication>

#include <algorithm>

#include <unistd.h>

using namespace orrinvale;

namespace
{

void readAddress(std::string_view text, FormAddress::Allow allow)
{
    const auto form = FormAddress::parse(text, allow);
    if (!form)
        return;
    require(form->address.starts_with(form->origin), "an address begins with its origin");
    require(form->address.find_first_of("\"<>\n ") == std::string::npos, "nothing of an address leaves its attribute");
    require(wrapperPage(*form).find("\"" + form->address + "\"") != std::string::npos, "the page shows the address");
}

// Standard input becomes a pipe; its other end.
int openInput()
{
    int ends[2];
    require(::pipe(ends) == 0 && ::dup2(ends[0], STDIN_FILENO) == STDIN_FILENO, "there is a pipe");
    ::close(ends[0]);
    return ends[1];
}

void tell(int input, std::string_view piece)
{
    require(::write(input, piece.data(), piece.size()) == static_cast<ssize_t>(piece.size()), "the pipe takes it");
    QCoreApplication::processEvents();
}

void converse(FuzzInput input)
{
    constexpr int mostTurns = 200; // a kilobyte each
    const auto pipe = openInput();
    bool hasEnded = false;
    Conversation conversation;
    QObject::connect(&conversation, &Conversation::ended, &conversation, [&] { hasEnded = true; });
    while (!input.isEmpty())
        tell(pipe, input.piece());
    ::close(pipe);
    for (int turn = 0; turn < mostTurns && !hasEnded; ++turn)
        QCoreApplication::processEvents();
    require(hasEnded, "the end of the input is noticed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "conversation";
    static char* words[] = {name, nullptr};
    static QCoreApplication application(count, words);
    constexpr std::size_t pipeHolds = 60'000;
    const FuzzInput input(data, std::min(size, pipeHolds));
    readAddress(FuzzInput(input).rest(), FormAddress::Allow::httpsOnly);
    readAddress(FuzzInput(input).rest(), FormAddress::Allow::loopbackToo);
    converse(input);
    return 0;
}
