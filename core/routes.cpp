#include "core/routes.h"

#include "core/helpers.h"

#include <array>

namespace hb {

namespace {

std::array<Route, static_cast<std::size_t>(RouteId::Count)>& table()
{
    static std::array<Route, static_cast<std::size_t>(RouteId::Count)> routes{};
    return routes;
}

void run(RouteId id)
{
    if (Route route = routeOf(id))
        route();
    else
        DebugLog(QStringLiteral("No window behind route %1").arg(static_cast<int>(id)));
}

} // namespace

void setRoute(RouteId id, Route route) { table()[static_cast<std::size_t>(id)] = route; }
Route routeOf(RouteId id) { return table()[static_cast<std::size_t>(id)]; }

void showAddressBook() { run(RouteId::AddressBook); }
void showNameYourOwn() { run(RouteId::NameYourOwn); }
void showSearch() { run(RouteId::Search); }

void loadAddressReport() { run(RouteId::LoadAddressReport); }
void printAddressReport() { run(RouteId::PrintAddressReport); }
void addressReportPrinterSetup() { run(RouteId::AddressReportPrinterSetup); }
void addressReportPreview() { run(RouteId::AddressReportPreview); }
void showPageSetup() { run(RouteId::PageSetup); }
void showSelectPrinter() { run(RouteId::SelectPrinter); }
void loadBirthdayReport() { run(RouteId::LoadBirthdayReport); }
void printBirthdayReport() { run(RouteId::PrintBirthdayReport); }
void birthdayReportPreview() { run(RouteId::BirthdayReportPreview); }
void birthdayReportPageSetup() { run(RouteId::BirthdayReportPageSetup); }
void birthdayReportFormatCompute() { run(RouteId::BirthdayReportFormatCompute); }
void birthdayReportCompute() { run(RouteId::BirthdayReportCompute); }

void showLabels() { run(RouteId::Labels); }
void labelsPrint() { run(RouteId::LabelsPrint); }
void printMailPiece() { run(RouteId::PrintMailPiece); }
void mailPiecePageSetup() { run(RouteId::MailPiecePageSetup); }
void reloadMailPiecePreview() { run(RouteId::ReloadMailPiecePreview); }
void showReturnAddress() { run(RouteId::ReturnAddress); }

void showBackup() { run(RouteId::Backup); }
void showImport() { run(RouteId::Import); }
void showAddressBookServer() { run(RouteId::AddressBookServer); }
void syncNow() { run(RouteId::SyncNow); }
void syncAtStart() { run(RouteId::SyncAtStart); }
void syncAtEnd() { run(RouteId::SyncAtEnd); }

void showOptions() { run(RouteId::Options); }
void showDialer() { run(RouteId::Dialer); }
void loadAbout() { run(RouteId::LoadAbout); }
void showAbout() { run(RouteId::About); }

} // namespace hb
