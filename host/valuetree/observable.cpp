#include "observable.h"

#include "exceptionstop.h"
#include "iobserver.h"

#include <QHash>

#include <algorithm>
#include <vector>

static constexpr size_t LongList = 9; // from here on a search would cost more than a hash

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
    bool IsEmpty() const { return Live == 0; }

    bool SubjectGone = false;

private:
    class Walk;

    static void Tell(IObserver *observer, Observable *subject, TChangeCode code);
    int Find(const IObserver *observer) const;
    void Tidy();
    void Renumber();

    std::vector<IObserver *> Slots;
    size_t Live = 0;
    // Only for a long list; most have one observer or two, and a form has thousands of lists.
    QHash<const IObserver *, int> Places;
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
    if (!observer || Find(observer) >= 0)
        return false;
    Slots.push_back(observer);
    ++Live;
    if (Slots.size() == LongList)
        Renumber();
    else if (Slots.size() > LongList)
        Places.insert(observer, int(Slots.size()) - 1);
    return true;
}

void ObserverList::Remove(IObserver *observer)
{
    const int place = observer ? Find(observer) : -1;
    if (place < 0)
        return;
    Slots[size_t(place)] = nullptr;
    Places.remove(observer);
    --Live;
    if (Walks == 0)
        Tidy();
}

void ObserverList::Clear()
{
    std::fill(Slots.begin(), Slots.end(), nullptr);
    Places.clear();
    Live = 0;
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
    // Whoever is added on the way is notified next time, or this might never return.
    const size_t end = Slots.size();
    for (size_t i = 0; i < end; ++i) {
        IObserver *observer = Slots[i];
        if (observer && observer != except)
            Tell(observer, subject, code);
    }
}

void ObserverList::Tell(IObserver *observer, Observable *subject, TChangeCode code)
{
    try {
        observer->Update(subject, code);
    } catch (...) {
        if (!Orbel::ExceptionStop::EndsHere())
            throw;
    }
}

/// Does what had to wait. Blanks may fill half of the list, so that a removal costs constant time on average.
void ObserverList::Tidy()
{
    if (Slots.size() > 2 * Live) {
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

int ObserverList::Find(const IObserver *observer) const
{
    if (Slots.size() >= LongList)
        return Places.value(observer, -1);
    const auto place = std::find(Slots.begin(), Slots.end(), observer);
    return place == Slots.end() ? -1 : int(place - Slots.begin());
}

void ObserverList::Renumber()
{
    Places.clear();
    if (Slots.size() < LongList)
        return;
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
