// The recorded session, unpacked from the page's data.
//
// A row is a stretch of the integers in `rows`: the microseconds since the row before, kind, application, then places
// in `texts`: deed, object, outcome and the members of the kind's fields. -1 is nothing.

const nothing = -1;
const column = { elapsed: 0, kind: 1, application: 2, deed: 3, object: 4, outcome: 5, members: 6 };
const unknownApplication = "Unknown application";

function isKnown(application) { return application.name !== "" || application.identifier !== ""; }

class Session {
  constructor(data) {
    Object.assign(this, data);
    this.labelApplications();
    this.findRows();
  }

  get count() { return this.starts.length; }

  kind(row) { return this.kinds[this.kindIndex(row)]; }
  kindIndex(row) { return this.rows[this.starts[row] + column.kind]; }
  applicationIndex(row) { return this.rows[this.starts[row] + column.application]; }
  application(row) { return this.applications[this.applicationIndex(row)]; }

  // The text of one of the row's pieces; undefined where there is none.
  text(row, piece) { return this.texts[this.rows[this.starts[row] + piece]]; }

  // [name, text] of each member that the report has.
  members(row) {
    return this.kind(row).fields.map((field, index) => [field, this.text(row, column.members + index)])
      .filter(([, text]) => text !== undefined);
  }

  date(row) { return this.dateAt(this.times[row]); }
  dateAt(time) { return new Date((this.begin + time) / 1000); }

  findRows() {
    const starts = [], times = [];
    for (let start = 0, time = 0; start < this.rows.length;
      start += column.members + this.kinds[this.rows[start + column.kind]].fields.length) {
      time += this.rows[start + column.elapsed];
      starts.push(start);
      times.push(time);
    }
    this.starts = starts;
    this.times = times;
    this.end = times.reduce((latest, time) => Math.max(latest, time), 0);
  }

  // Each application under a label of its own.
  labelApplications() {
    const plain = application => application.name || application.identifier || unknownApplication;
    const uses = new Map();
    for (const application of this.applications) {
      uses.set(plain(application), (uses.get(plain(application)) ?? 0) + 1);
    }
    this.applications.forEach((application, index) => {
      application.index = index;
      application.label = plain(application);
      if (uses.get(application.label) > 1) application.label += ` (${application.identifier || "no identifier"})`;
    });
  }
}
