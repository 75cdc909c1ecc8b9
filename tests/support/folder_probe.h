// A calendar folder that passes everything on to another one, and fails where a test wants it to.
#pragma once

#include "platform/outlook.h"

#include <string>
#include <utility>
#include <vector>

namespace tavo::test {

// A failure is given back without asking further.
struct FolderFaults {
    Status ItemsResult = Status::Ok;
    Status CountResult = Status::Ok;
    Status RestrictResult = Status::Ok;
    std::int32_t LockedFrom = 0;   // the place from which on items of a restricted collection are Locked; 0: none
    std::int32_t MissingFrom = 0;  // likewise, from where on there is no item although nothing failed
    IAppointment* First = nullptr; // the first item of a restricted collection, if it is to be another; lives longer
    std::vector<std::string>* Calls = nullptr; // where to note that the folder was released for good, if anywhere
    std::vector<std::u16string>* Restrictions = nullptr; // where to note what was asked for, if anywhere
};

// Counts its references and goes with the last one. The faults outlive it.
template <class Interface> class CountedProbe : public Interface {
  public:
    CountedProbe(const CountedProbe&) = delete;
    CountedProbe& operator=(const CountedProbe&) = delete;

    void AddRef() override { ++References; }

    void Release() override {
        if (--References == 0) {
            delete this;
        }
    }

  protected:
    explicit CountedProbe(const FolderFaults& faults) : Faults(faults) {}

    ~CountedProbe() override = default;

    const FolderFaults& Faults;

  private:
    int References = 1;
};

class ItemsProbe final : public CountedProbe<IPOutlookItemCollection> {
  public:
    ItemsProbe(ComPtr<IPOutlookItemCollection> real, const FolderFaults& faults)
        : CountedProbe(faults), Real(std::move(real)) {}

    // Even a failing call leaves a number behind, as an unlucky device might.
    Status get_Count(std::int32_t& count) override {
        constexpr std::int32_t leftover = 77;
        if (Failed(Faults.CountResult)) {
            count = leftover;
            return Faults.CountResult;
        }
        return Real->get_Count(count);
    }

    Status Item(std::int32_t index, ComPtr<IAppointment>& item) override {
        if (Faults.LockedFrom != 0 && index >= Faults.LockedFrom) {
            return Status::Locked;
        }
        if (Faults.MissingFrom != 0 && index >= Faults.MissingFrom) {
            item.Reset();
            return Status::Ok;
        }
        if (Faults.First != nullptr && index == 1) {
            Faults.First->AddRef();
            item = ComPtr<IAppointment>::Adopt(Faults.First);
            return Status::Ok;
        }
        return Real->Item(index, item);
    }

    Status Restrict(std::u16string_view restriction, ComPtr<IPOutlookItemCollection>& items) override {
        if (Faults.Restrictions != nullptr) {
            Faults.Restrictions->emplace_back(restriction);
        }
        if (Failed(Faults.RestrictResult)) {
            return Faults.RestrictResult;
        }
        const Status restricted = Real->Restrict(restriction, items);
        if (items && (Faults.LockedFrom != 0 || Faults.MissingFrom != 0 || Faults.First != nullptr)) {
            items = ComPtr<IPOutlookItemCollection>::Adopt(new ItemsProbe(items, Faults));
        }
        return restricted;
    }

    Status put_IncludeRecurrences(bool include) override { return Real->put_IncludeRecurrences(include); }

  private:
    ComPtr<IPOutlookItemCollection> Real;
};

class FolderProbe final : public CountedProbe<IFolder> {
  public:
    static ComPtr<IFolder> Make(ComPtr<IFolder> real, const FolderFaults& faults) {
        return ComPtr<IFolder>::Adopt(new FolderProbe(std::move(real), faults));
    }

    Status get_Items(ComPtr<IPOutlookItemCollection>& items) override {
        if (Failed(Faults.ItemsResult)) {
            return Faults.ItemsResult;
        }
        ComPtr<IPOutlookItemCollection> all;
        const Status got = Real->get_Items(all);
        if (Succeeded(got)) {
            items = ComPtr<IPOutlookItemCollection>::Adopt(new ItemsProbe(std::move(all), Faults));
        }
        return got;
    }

  private:
    FolderProbe(ComPtr<IFolder> real, const FolderFaults& faults) : CountedProbe(faults), Real(std::move(real)) {}

    ~FolderProbe() override {
        if (Faults.Calls != nullptr) {
            Faults.Calls->emplace_back("folder released");
        }
    }

    ComPtr<IFolder> Real;
};

// Notes what is asked of a calendar folder while this lives.
class AskedRestrictions {
  public:
    explicit AskedRestrictions(ComPtr<IFolder>& folder) : Folder(folder), Real(folder) {
        Faults.Restrictions = &Texts;
        Folder = FolderProbe::Make(Real, Faults);
    }

    ~AskedRestrictions() { Folder = Real; }

    AskedRestrictions(const AskedRestrictions&) = delete;
    AskedRestrictions& operator=(const AskedRestrictions&) = delete;

    std::vector<std::u16string> Texts;

  private:
    FolderFaults Faults;
    ComPtr<IFolder>& Folder;
    ComPtr<IFolder> Real;
};

} // namespace tavo::test
