// The status codes that the host's database operations answer. The numbers
// are the host's own, so a status printed by one side reads the same on the
// other.
#pragma once

namespace Acad {

enum ErrorStatus : int {
  eOk = 0,
  eNotImplementedYet = 1,
  eNotApplicable = 2,
  eInvalidInput = 3,
  eOutOfMemory = 6,
  eInvalidOpenState = 8,
  eHandleExists = 10,
  eNullHandle = 11,
  eUnknownHandle = 13,
  eNullObjectPointer = 15,
  eNullObjectId = 16,
  eNullBlockName = 17,
  eNullEntityPointer = 20,
  eIllegalEntityType = 21,
  eKeyNotFound = 22,
  eDuplicateKey = 23,
  eInvalidIndex = 24,
  eAlreadyInDb = 26,
  eInvalidSymbolTableName = 32,
  eInvalidKey = 33,
  eWrongObjectType = 34,
  eWrongDatabase = 35,
  eInvalidDwgVersion = 37,
  eEndOfObject = 40,
  eEndOfFile = 41,
  eNotOpenForRead = 44,
  eNotOpenForWrite = 45,
  eNotThatKindOfClass = 46,
  eInvalidBlockName = 47,
  eMissingDxfField = 48,
  eInvalidDxfCode = 50,
  eBadDxfSequence = 52,
  eFilerError = 53,
  eDxfPartiallyRead = 62,
  eDxfReadAborted = 63,
  eFileAccessErr = 72,
  eFileSystemErr = 73,
  eFileNotFound = 76,
  eWasErased = 80,
  ePermanentlyErased = 81,
  eWasOpenForRead = 82,
  eWasOpenForWrite = 83,
  eAtMaxReaders = 90,
  eNotAnEntity = 93,
  eHadMultipleReaders = 94,
  eDuplicateRecordName = 95,
  eSelfReference = 97,
  // Extended data for an application name that the database has not
  // registered. The number is this stand-in's own.
  eRegappIdNotFound = 160,
};

}  // namespace Acad

// The name of a status, e.g. L"eKeyNotFound"; L"eUnknownStatus" for others.
const wchar_t *acadErrorStatusText(Acad::ErrorStatus status);
