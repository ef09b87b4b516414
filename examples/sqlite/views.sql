-- Views on a recorded session, or on a fleet's stream as mosquitto_sub -F %J prints it: one line of it is one row of `lines`.
create table lines(line text);

-- Each report once, where it came from, and when in seconds.
create view reports as
with messages as (
  select rowid as number, coalesce(line ->> '$.topic', '') as desktop,
    case when line ->> '$.topic' is null then line else line -> '$.payload' end as report
  from lines
)
select min(number) as number, desktop, report ->> '$.session' as session, report ->> '$.sequence' as sequence,
  report ->> '$.action' as action, report ->> '$.elementName' as element, report ->> '$.operation' as operation,
  report ->> '$.fileDescription' as application, (julianday(report ->> '$.date') - 2440587.5) * 86400 as seconds, report
from messages
group by desktop, session, coalesce(sequence, number);

-- The sequence numbers give the order of a session, whatever came first. A stay is what is done between two switches of the application in front, or starts and stops of collection.
create view stays as
with begun as (select *, min(number) over (partition by desktop, session) as first from reports),
ordered as (select *, row_number() over (order by first, coalesce(sequence, number)) as place from begun)
select desktop, action, element, operation, application, seconds, place as number, sum(action in ('ChangeApplication', 'Collector')) over (partition by desktop order by place) as stay
from ordered;

-- What is done: in which application, how long until the next report of the same desktop, what came next in the same stay.
create view deeds as
select number, desktop, action, element, seconds,
  first_value(application) over in_stay as application,
  first_value(operation) over in_stay in ('stop', 'pause') as is_paused,
  lead(seconds) over (partition by desktop order by number) - seconds as until_next,
  lead(number) over in_stay is not null as has_next,
  action || coalesce(' ' || nullif(element, ''), '') as deed
from stays
window in_stay as (partition by desktop, stay order by number);

create view time_by_application as
select coalesce(application, '(not known)') as application, round(sum(until_next), 1) as seconds, count(*) as reports
from deeds where not coalesce(is_paused, 0) group by 1 order by seconds desc;

-- Three deeds that follow each other in one application, at whatever desktop, the most frequent ones first.
create view sequences as
with steps as (
  select application, number, deed, lead(deed, 1) over next as second, lead(deed, 2) over next as third,
    lead(application, 2) over next as last_application
  from deeds where action not in ('Collector', 'ChangeApplication') window next as (partition by desktop order by number)
)
select count(*) as times, application, deed || ' > ' || second || ' > ' || third as sequence
from steps where application = last_application group by 2, 3 order by times desc, min(number);

-- After which deeds nothing is done for five seconds or more, although the application stays in front.
create view waits as
select application, deed, count(*) as times, round(avg(until_next), 1) as mean, round(max(until_next), 1) as longest
from deeds where has_next and until_next >= 5 and application is not null group by 1, 2 order by sum(until_next) desc;

-- What a fleet's stream misses, and what came more than once.
create view gaps as
with arrived as (
  select desktop, session, sequence, coalesce(lag(sequence) over (partition by desktop, session order by sequence), 0) as last
  from reports where sequence is not null
)
select desktop, session, last + 1 as first_missing, sequence - 1 as last_missing from arrived where sequence > last + 1;

create view doubles as
select line ->> '$.topic' as desktop, line ->> '$.payload.sequence' as sequence, count(*) as arrivals
from lines where line ->> '$.payload.sequence' is not null
group by 1, line ->> '$.payload.session', 2 having arrivals > 1;
