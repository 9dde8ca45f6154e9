// Messages to and from the wire, against a library that phones are backed up with.
#include <benchmark/benchmark.h>
#include <gammu.h>

#include "sms/received_pdu.h"
#include "sms/submit_pdu.h"

namespace {

const char* const text = "The gateway is back since 14:02, port 7 has lost its SIM. Please look {soon}: 12 calls wait.";

trunvex::SubmitMessage message() { return {"+999555010", "+99955512345", text, trunvex::SmsAlphabet::Gsm7, 1}; }

void encode(benchmark::State& state) {
    const auto sent = message();
    for (auto _ : state) benchmark::DoNotOptimize(trunvex::encodeSubmit(sent));
}

void encodeByLibrary(benchmark::State& state) {
    for (auto _ : state) {
        GSM_SMSMessage sms;
        GSM_SetDefaultSMSData(&sms);
        sms.PDU = SMS_Submit;
        sms.Coding = SMS_Coding_Default_No_Compression;
        EncodeUnicode(sms.SMSC.Number, "+999555010", 10);
        EncodeUnicode(sms.Number, "+99955512345", 12);
        DecodeUTF8(sms.Text, text, static_cast<int>(std::char_traits<char>::length(text)));
        sms.Length = static_cast<int>(UnicodeLength(sms.Text));
        unsigned char buffer[400];
        int length = 0;
        benchmark::DoNotOptimize(
            GSM_EncodeSMSFrame(GSM_GetGlobalDebug(), &sms, buffer, PHONE_SMSSubmit, &length, TRUE));
    }
}

void decode(benchmark::State& state) {
    const auto pdu = trunvex::encodeSubmit(message()).front();
    for (auto _ : state) benchmark::DoNotOptimize(trunvex::decodePdu(pdu));
}

void decodeByLibrary(benchmark::State& state) {
    const auto pdu = trunvex::encodeSubmit(message()).front();
    std::vector<unsigned char> octets;
    for (std::size_t i = 0; i < pdu.size(); i += 2)
        octets.push_back(static_cast<unsigned char>(std::stoi(pdu.substr(i, 2), nullptr, 16)));
    for (auto _ : state) {
        GSM_SMSMessage sms;
        GSM_SetDefaultSMSData(&sms);
        benchmark::DoNotOptimize(
            GSM_DecodePDUFrame(GSM_GetGlobalDebug(), &sms, octets.data(), octets.size(), nullptr, TRUE));
    }
}

BENCHMARK(encode)->Name("message/encode");
BENCHMARK(encodeByLibrary)->Name("message/library_encode");
BENCHMARK(decode)->Name("message/decode");
BENCHMARK(decodeByLibrary)->Name("message/library_decode");

}  // namespace
