#include "platform/acad/AcadErrorStatus.h"

const wchar_t *acadErrorStatusText(Acad::ErrorStatus status) {
  switch (status) {
#define TOLV_STATUS_NAME(name) \
  case Acad::name:             \
    return L"" #name;
    TOLV_STATUS_NAME(eOk)
    TOLV_STATUS_NAME(eNotImplementedYet)
    TOLV_STATUS_NAME(eNotApplicable)
    TOLV_STATUS_NAME(eInvalidInput)
    TOLV_STATUS_NAME(eOutOfMemory)
    TOLV_STATUS_NAME(eInvalidOpenState)
    TOLV_STATUS_NAME(eHandleExists)
    TOLV_STATUS_NAME(eNullHandle)
    TOLV_STATUS_NAME(eUnknownHandle)
    TOLV_STATUS_NAME(eNullObjectPointer)
    TOLV_STATUS_NAME(eNullObjectId)
    TOLV_STATUS_NAME(eNullBlockName)
    TOLV_STATUS_NAME(eNullEntityPointer)
    TOLV_STATUS_NAME(eIllegalEntityType)
    TOLV_STATUS_NAME(eKeyNotFound)
    TOLV_STATUS_NAME(eDuplicateKey)
    TOLV_STATUS_NAME(eInvalidIndex)
    TOLV_STATUS_NAME(eAlreadyInDb)
    TOLV_STATUS_NAME(eInvalidSymbolTableName)
    TOLV_STATUS_NAME(eInvalidKey)
    TOLV_STATUS_NAME(eWrongObjectType)
    TOLV_STATUS_NAME(eWrongDatabase)
    TOLV_STATUS_NAME(eInvalidDwgVersion)
    TOLV_STATUS_NAME(eEndOfObject)
    TOLV_STATUS_NAME(eEndOfFile)
    TOLV_STATUS_NAME(eNotOpenForRead)
    TOLV_STATUS_NAME(eNotOpenForWrite)
    TOLV_STATUS_NAME(eNotThatKindOfClass)
    TOLV_STATUS_NAME(eInvalidBlockName)
    TOLV_STATUS_NAME(eMissingDxfField)
    TOLV_STATUS_NAME(eInvalidDxfCode)
    TOLV_STATUS_NAME(eBadDxfSequence)
    TOLV_STATUS_NAME(eFilerError)
    TOLV_STATUS_NAME(eDxfPartiallyRead)
    TOLV_STATUS_NAME(eDxfReadAborted)
    TOLV_STATUS_NAME(eFileAccessErr)
    TOLV_STATUS_NAME(eFileSystemErr)
    TOLV_STATUS_NAME(eFileNotFound)
    TOLV_STATUS_NAME(eWasErased)
    TOLV_STATUS_NAME(ePermanentlyErased)
    TOLV_STATUS_NAME(eWasOpenForRead)
    TOLV_STATUS_NAME(eWasOpenForWrite)
    TOLV_STATUS_NAME(eAtMaxReaders)
    TOLV_STATUS_NAME(eNotAnEntity)
    TOLV_STATUS_NAME(eHadMultipleReaders)
    TOLV_STATUS_NAME(eDuplicateRecordName)
    TOLV_STATUS_NAME(eSelfReference)
    TOLV_STATUS_NAME(eRegappIdNotFound)
#undef TOLV_STATUS_NAME
  }
  return L"eUnknownStatus";
}
