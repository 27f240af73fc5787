#include "host/record/record_file.h"

extern "C" Q_DECL_EXPORT krt550::CRecordStore* krt550_record() {
    return new krt550::CRecordFile;
}
