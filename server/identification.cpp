#include "server/identification.h"

#include "server/request_handler.h"

namespace krt550 {
namespace {

enum ReadCode : quint8 { kBasic = 1, kRegular = 2, kExtended = 3, kOne = 4 };
constexpr std::size_t kBasicObjects = 3;
constexpr char kConformity = '\x82'; ///< regular, as stream and one by one

} // namespace

QByteArray AnswerIdentification(std::span<const quint8> request, const Identification& objects) {
    constexpr auto kFunction = WireFunction::Encapsulated;
    if (request.empty() || request[0] != kReadIdentification)
        return ExceptionPdu(kFunction, WireException::IllegalFunction);
    if (request.size() != 3 || request[1] < kBasic || request[1] > kOne)
        return ExceptionPdu(kFunction, WireException::OutOfLimits);
    const quint8 code = request[1];
    std::size_t first = request[2];
    std::size_t end = code == kBasic ? kBasicObjects : objects.size();
    if (code == kOne) {
        if (first >= objects.size())
            return ExceptionPdu(kFunction, WireException::UnknownRegister);
        end = first + 1;
    } else if (first >= end) {
        first = 0; // a stream that is asked to go on behind its end begins anew
    }
    QByteArray answer;
    answer.append(static_cast<char>(kFunction)).append(static_cast<char>(kReadIdentification));
    answer.append(static_cast<char>(code)).append(kConformity);
    answer.append('\0').append('\0'); // nothing more follows
    answer.append(static_cast<char>(end - first));
    for (std::size_t id = first; id < end; ++id)
        answer.append(static_cast<char>(id)).append(static_cast<char>(objects[id].size())).append(objects[id]);
    return answer;
}

} // namespace krt550
