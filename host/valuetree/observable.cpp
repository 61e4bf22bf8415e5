#include "observable.h"

#include "iobserver.h"

#include <QHash>

#include <algorithm>
#include <vector>

/// The observers in their order. A running notification shares it, so that it outlives the subject. While one runs,
/// places are only blanked and appended, never moved.
class ObserverList
{
public:
    bool Add(IObserver *observer);
    void Remove(IObserver *observer);
    void Clear();
    void MoveToFront(IObserver *observer);
    void Notify(Observable *subject, TChangeCode code, IObserver *except);
    bool IsEmpty() const { return Places.isEmpty(); }

    bool SubjectGone = false;

private:
    class Walk;

    void Tidy();
    void Renumber();

    std::vector<IObserver *> Slots;
    QHash<IObserver *, int> Places;
    std::vector<IObserver *> WaitingForFront;
    int Walks = 0;
};

/// Keeps the places fixed for the time of one notification.
class ObserverList::Walk
{
public:
    explicit Walk(ObserverList *list) : List(list) { ++List->Walks; }
    Walk(const Walk &) = delete;
    Walk &operator=(const Walk &) = delete;
    ~Walk()
    {
        if (--List->Walks == 0)
            List->Tidy();
    }

private:
    ObserverList *List;
};

bool ObserverList::Add(IObserver *observer)
{
    if (!observer || Places.contains(observer))
        return false;
    Places.insert(observer, int(Slots.size()));
    Slots.push_back(observer);
    return true;
}

void ObserverList::Remove(IObserver *observer)
{
    const auto place = Places.find(observer);
    if (place == Places.end())
        return;
    Slots[size_t(*place)] = nullptr;
    Places.erase(place);
    if (Walks == 0)
        Tidy();
}

void ObserverList::Clear()
{
    std::fill(Slots.begin(), Slots.end(), nullptr);
    Places.clear();
    if (Walks == 0)
        Tidy();
}

void ObserverList::MoveToFront(IObserver *observer)
{
    Add(observer);
    WaitingForFront.push_back(observer);
    if (Walks == 0)
        Tidy();
}

void ObserverList::Notify(Observable *subject, TChangeCode code, IObserver *except)
{
    const Walk walk(this);
    // Whoever is added on the way is told next time, or this might never end.
    const size_t end = Slots.size();
    for (size_t i = 0; i < end; ++i) {
        IObserver *observer = Slots[i];
        if (observer && observer != except)
            observer->Update(subject, code);
    }
}

/// Does what had to wait. Blanks may fill half of the list, so that a removal costs constant time on average.
void ObserverList::Tidy()
{
    if (Slots.size() > 2 * size_t(Places.size())) {
        Slots.erase(std::remove(Slots.begin(), Slots.end(), nullptr), Slots.end());
        Renumber();
    }
    for (IObserver *observer : WaitingForFront) {
        const auto place = std::find(Slots.begin(), Slots.end(), observer);
        if (place != Slots.end())
            std::rotate(Slots.begin(), place, place + 1);
    }
    if (!WaitingForFront.empty())
        Renumber();
    WaitingForFront.clear();
}

void ObserverList::Renumber()
{
    for (size_t i = 0; i < Slots.size(); ++i)
        if (Slots[i])
            Places[Slots[i]] = int(i);
}

Observable::Observable() : Observers(std::make_shared<ObserverList>()) { }

Observable::~Observable()
{
    // A notification that runs further up the stack still holds the list, and goes on with what it finds there.
    Observers->SubjectGone = true;
    Observers->Clear();
}

bool Observable::AddObserver(IObserver *observer)
{
    return Observers->Add(observer);
}

void Observable::DeleteObserver(IObserver *observer)
{
    Observers->Remove(observer);
}

void Observable::DeleteObservers()
{
    Observers->Clear();
}

void Observable::MakeFirstObserver(IObserver *observer)
{
    if (observer)
        Observers->MoveToFront(observer);
}

void Observable::NotifyObservers(TChangeCode code, IObserver *except)
{
    const std::shared_ptr<ObserverList> list = Observers;
    list->Notify(this, code, except);
}

bool Observable::HasObservers() const
{
    return !Observers->IsEmpty();
}

bool Observable::NotifyInTurn(std::initializer_list<TChangeCode> codes, IObserver *except)
{
    const std::shared_ptr<ObserverList> list = Observers;
    for (const TChangeCode code : codes) {
        if (list->SubjectGone)
            break;
        NotifyObservers(code, except);
    }
    return !list->SubjectGone;
}
