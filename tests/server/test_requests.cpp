// Requests as the published protocol gives them as examples, at addresses of this drive, and what is answered.
#include "server/rtu_frame.h"
#include "tests/server/served_sim.h"

namespace krt550 {
namespace {

using test::ServedSim;

TEST(Requests, AreAnsweredAsTheProtocolSays) {
    const struct {
        const char* request;
        const char* reply;
    } cases[] = {
        // the state, before anything was refused
        {"03 4e84 000a", "03 14 00 00 00 10 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"},
        // read holding registers: three of them, none, too many, unknown ones, beyond the last address
        {"03 006b 0003", "03 06 00 00 00 00 00 00"},
        {"03 0070 0001", "03 02 00 e6"},
        {"03 26b2 0003", "03 06 00 00 00 00 00 00"},
        {"03 0070 0000", "83 03"},
        {"03 0070 007e", "83 03"},
        {"03 270f 0001", "83 02"},
        {"03 ffff 0002", "83 02"},
        {"03 0070", "83 03"},
        {"03 0070 0001 00", "83 03"},
        {"03 4e20 0001", "83 02"},                   // a command
        {"03 4fb0 0003", "03 06 02 26 00 01 00 1b"}, // signature, version, units
        {"03 5230 0002", "03 04 00 02 48 7a"},       // a unit text: 2, "Hz"
        {"03 4e84 006e 00", "83 03"},
        {"03 4ef2 0001", "83 02"}, // behind the state
        // write one register: taken, out of its value list, read-only, unknown, an unknown command, half a field
        {"06 0bd5 0014", "06 0b d5 00 14"},
        {"03 0bd5 0001", "03 02 00 14"},
        {"06 26b2 03e7", "86 03"},
        {"06 0070 0003", "86 04"},
        {"06 0001 0003", "86 02"},
        {"06 4e20 0063", "86 03"},
        {"06 4e21 0001", "86 03"},
        {"06 4e84 0001", "86 04"},
        {"06 0bd5 001400", "86 03"},
        // write registers: two of them, a count that contradicts itself, one refused behind one that is taken
        {"10 0bd5 0001 02 0032", "10 0b d5 00 01"},
        {"10 0bd5 0002 02 000a", "90 03"},
        {"10 0bd5 0000 00", "90 03"},
        {"10 4e20 0003 06 0008 0000 2710", "90 04"}, // a reference without local control
        {"10 4e20 0003 06 0005 0000 2710", "90 03"}, // a start has none
        {"06 4e20 0008", "86 03"},                   // a reference that is missing
        // loopback
        {"08 0000 a537", "08 00 00 a5 37"},
        {"08 0001 0000", "88 01"},
        {"08 00", "88 03"},
        // identification: basic, one object, none such, another code, another transport
        {"2b 0e 01 00", "2b 0e 01 82 00 00 03 00 03 4b 52 54 01 01 50 02 01 32"},
        {"2b 0e 04 05", "2b 0e 04 82 00 00 01 05 01 4d"},
        {"2b 0e 02 05", "2b 0e 02 82 00 00 02 05 01 4d 06 01 55"},
        {"2b 0e 04 07", "ab 02"},
        {"2b 0e 05 00", "ab 03"},
        {"2b 0d 01 00", "ab 01"},
        // functions that it does not have
        {"01 0013 0013", "81 01"},
        {"04 0008 0001", "84 01"},
        {"17 0003 0006 000e 0003 06 00ff 00ff 00ff", "97 01"},
    };
    ServedSim sim;
    for (const auto& c : cases)
        EXPECT_EQ(sim.Ask(sim.a, c.request), c.reply) << c.request << ": " << sim.a.reason.toStdString();
}

TEST(Requests, FramesAreTakenOutOfAnyStream) {
    // Two requests in pieces; what cannot be one.
    const QByteArray stream = QByteArray::fromHex("150100000006ff0300000001 0002000000020108");
    QByteArray bytes;
    QByteArray taken;
    TcpFrame frame;
    for (const char byte : stream) {
        bytes.append(byte);
        if (TakeTcpFrame(bytes, frame) == FrameStatus::Whole)
            taken += frame.pdu.toHex() + '@' + QByteArray::number(frame.unit) + ' ' + TcpBytes(frame).toHex() + ' ';
    }
    EXPECT_EQ(taken, "0300000001@255 150100000006ff0300000001 08@1 0002000000020108 ");
    for (const char* broken : {"000100010006", "000100000001", "0001000000ff"})
        EXPECT_EQ(TakeTcpFrame(bytes = QByteArray::fromHex(broken), frame), FrameStatus::Broken) << broken;

    EXPECT_EQ(RtuBytes(0x11, QByteArray::fromHex("03006b0003")).toHex(), "1103006b00037687");
    const struct {
        const char* heard; ///< a blank is a pause inside a frame, | a silence
        const char* requests;
    } lines[] = {
        {"1103006b00037687", "03006b0003"},
        {"11 0300 6b000376 87", "03006b0003"},
        {"1103006b000376871103006b00037687", "03006b0003 03006b0003"},
        {"1103006b00037688|1103006b00037687", "03006b0003"},      // damaged
        {"1203006b00037687 ffff|1103006b00037687", "03006b0003"}, // another unit, and its answer
        {"0003006b00037687|", ""},                                // everybody
        {"11|1103006b00037687", "03006b0003"},                    // begun and left
        {"11080000a537d81d|", "080000a537"},                      // ends with the silence
        {"112b0e0100|", ""},
    };
    for (const auto& line : lines) {
        CRtuFrames frames(0x11);
        QByteArrayList requests;
        for (const QByteArray& burst : QByteArray(line.heard).split('|')) {
            for (const QByteArray& piece : burst.split(' ')) {
                frames.Append(QByteArray::fromHex(piece));
                while (const auto request = frames.Take())
                    requests.append(request->toHex());
            }
            if (const auto request = frames.TakeAtSilence())
                requests.append(request->toHex());
        }
        EXPECT_EQ(requests.join(' '), line.requests) << line.heard;
    }
}

TEST(Requests, WhatTheFaultModesDoToALineIsDoneToTheAnswer) {
    ServedSim silent("sim,fault=no-answer");
    EXPECT_EQ(silent.Ask(silent.a, "03 0070 0001"), "");
    ServedSim late("sim,fault=late-answer:300");
    late.Ask(late.a, "06 0bd5 0014");
    EXPECT_EQ(late.m_reply.delay, 300);
    EXPECT_EQ(late.Ask(late.b, "06 0bd5 0032"), "86 06") << "the former answer is still on its way";
    late.m_clock.Sleep(300);
    EXPECT_EQ(late.Ask(late.b, "06 0bd5 0032"), "06 0b d5 00 32");
    ServedSim lossy("sim,fault=reply-lost:2,fault=missing:3016,fault=read-fails:3017,fault=write-refused:3018");
    EXPECT_EQ(lossy.Ask(lossy.a, "06 0bd5 0014"), "06 0b d5 00 14");
    EXPECT_EQ(lossy.Ask(lossy.a, "06 0bd5 0032"), "") << "it is done all the same";
    for (const auto& [request, reply] : {std::pair{"03 0bd5 0001", "03 02 00 32"},
                                         {"03 0bc8 0001", ""},
                                         {"03 0bc8 0001", "83 02"},
                                         {"03 0bc9 0001", ""},
                                         {"03 0bc9 0001", "83 04"},
                                         {"06 0bca 0001", ""},
                                         {"06 0bca 0001", "86 04"}})
        EXPECT_EQ(lossy.Ask(lossy.a, request), reply) << request << ": " << lossy.a.reason.toStdString();
}

} // namespace
} // namespace krt550
