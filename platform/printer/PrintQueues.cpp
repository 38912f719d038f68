#include "platform/printer/PrintQueues.h"

#include <QLibrary>
#include <QPrinterInfo>
#include <QScopeGuard>
#include <cups/cups.h>

/// What is used of the library, which the toolkit's printing has loaded already.
struct PrintQueues::Library {
    Library() : file(QStringLiteral("cups"), 2) {
        Resolve(GetNamedDest, "cupsGetNamedDest");
        Resolve(FreeDests, "cupsFreeDests");
        Resolve(CreateJob, "cupsCreateJob");
        Resolve(StartDocument, "cupsStartDocument");
        Resolve(WriteRequestData, "cupsWriteRequestData");
        Resolve(FinishDocument, "cupsFinishDocument");
        Resolve(CancelJob, "cupsCancelJob");
        Resolve(LastErrorString, "cupsLastErrorString");
        Resolve(DoRequest, "cupsDoRequest");
        Resolve(User, "cupsUser");
        Resolve(NewRequest, "ippNewRequest");
        Resolve(AddString, "ippAddString");
        Resolve(GetStatusCode, "ippGetStatusCode");
        Resolve(FindAttribute, "ippFindAttribute");
        Resolve(GetInteger, "ippGetInteger");
        Resolve(Delete, "ippDelete");
        Resolve(SetPasswordCallback, "cupsSetPasswordCB2");
        if (isWhole)
            // Nobody sits at the terminal in which the library would ask.
            SetPasswordCallback([](const char*, http_t*, const char*, const char*,
                                   void*) -> const char* { return nullptr; },
                                nullptr);
    }

    template <class Function>
    void Resolve(Function& function, const char* name) {
        function = reinterpret_cast<Function>(file.resolve(name));
        isWhole = isWhole && function != nullptr;
    }

    QLibrary file;
    bool isWhole = true;
    decltype(&::cupsGetNamedDest) GetNamedDest;
    decltype(&::cupsFreeDests) FreeDests;
    decltype(&::cupsCreateJob) CreateJob;
    decltype(&::cupsStartDocument) StartDocument;
    decltype(&::cupsWriteRequestData) WriteRequestData;
    decltype(&::cupsFinishDocument) FinishDocument;
    decltype(&::cupsCancelJob) CancelJob;
    decltype(&::cupsLastErrorString) LastErrorString;
    decltype(&::cupsDoRequest) DoRequest;
    decltype(&::cupsUser) User;
    decltype(&::ippNewRequest) NewRequest;
    decltype(&::ippAddString) AddString;
    decltype(&::ippGetStatusCode) GetStatusCode;
    decltype(&::ippFindAttribute) FindAttribute;
    decltype(&::ippGetInteger) GetInteger;
    decltype(&::ippDelete) Delete;
    decltype(&::cupsSetPasswordCB2) SetPasswordCallback;
};

namespace {

/// The toolkit's "name/instance", where an instance is a name for settings of one's own.
QByteArray QueueOf(const QString& printer) {
    return printer.section(QLatin1Char('/'), 0, 0).toUtf8();
}

QByteArray InstanceOf(const QString& printer) {
    return printer.section(QLatin1Char('/'), 1).toUtf8();
}

} // namespace

PrintQueues::PrintQueues() : library_(std::make_unique<Library>()) {
    if (!library_->isWhole)
        library_.reset();
}

PrintQueues::~PrintQueues() = default;

PrintQueues::Answer PrintQueues::Send(const QString& printer, const QString& title,
                                      const QByteArray& pdf) const {
    const QByteArray instance = InstanceOf(printer);
    cups_dest_t* dest = library_->GetNamedDest(CUPS_HTTP_DEFAULT, QueueOf(printer).constData(),
                                               instance.isEmpty() ? nullptr : instance.constData());
    if (dest == nullptr)
        return {.Refusal = QString::fromUtf8(library_->LastErrorString())};
    const auto freeDest = qScopeGuard([&] { library_->FreeDests(1, dest); });
    const int job = library_->CreateJob(CUPS_HTTP_DEFAULT, dest->name, title.toUtf8().constData(),
                                        dest->num_options, dest->options);
    if (job == 0)
        return {.Refusal = QString::fromUtf8(library_->LastErrorString())};
    const bool isTaken =
        library_->StartDocument(CUPS_HTTP_DEFAULT, dest->name, job, title.toUtf8().constData(),
                                CUPS_FORMAT_PDF, 1) == HTTP_STATUS_CONTINUE &&
        library_->WriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(),
                                   static_cast<size_t>(pdf.size())) == HTTP_STATUS_CONTINUE;
    const ipp_status_t end = library_->FinishDocument(CUPS_HTTP_DEFAULT, dest->name);
    if (isTaken && end < IPP_STATUS_REDIRECTION_OTHER_SITE)
        return {.Job = job};
    const QString refusal = QString::fromUtf8(library_->LastErrorString());
    library_->CancelJob(dest->name, job);
    return {.Refusal = refusal};
}

PrintQueues::JobState PrintQueues::StateOf(const QString& printer, int job) const {
    // The library's own list of jobs would bring all that the server knows.
    ipp_t* question = library_->NewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const auto add = [&](ipp_tag_t kind, const char* name, const QByteArray& value) {
        library_->AddString(question, IPP_TAG_OPERATION, kind, name, nullptr, value.constData());
    };
    add(IPP_TAG_URI, "job-uri", "ipp://localhost/jobs/" + QByteArray::number(job));
    add(IPP_TAG_NAME, "requesting-user-name", library_->User());
    add(IPP_TAG_KEYWORD, "requested-attributes", "job-state");
    ipp_t* answer = library_->DoRequest(CUPS_HTTP_DEFAULT, question, "/");
    const auto freeAnswer = qScopeGuard([&] { library_->Delete(answer); });
    ipp_attribute_t* told = library_->FindAttribute(answer, "job-state", IPP_TAG_ENUM);
    if (told == nullptr)
        // A server that does not answer, or not now, may have the pages still.
        return library_->GetStatusCode(answer) == IPP_STATUS_ERROR_NOT_FOUND ? JobState::Gone
                                                                             : JobState::UnderWay;
    switch (library_->GetInteger(told, 0)) {
    case IPP_JSTATE_PENDING:
        return QPrinterInfo::printerInfo(printer).state() == QPrinter::Error ? JobState::Waiting
                                                                             : JobState::UnderWay;
    case IPP_JSTATE_HELD:
        return JobState::Waiting;
    case IPP_JSTATE_PROCESSING:
        return JobState::UnderWay;
    case IPP_JSTATE_STOPPED: // by an error on the way to the printer: it does not go on of itself
    case IPP_JSTATE_ABORTED:
        return JobState::Lost;
    default:
        return JobState::Gone;
    }
}
