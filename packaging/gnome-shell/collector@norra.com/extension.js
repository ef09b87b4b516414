// Tells norra-collector-service, and nobody else, which window is in front and where buttons of the pointer are pressed,
// while it listens. It knows of no key. At rest it is woken by nothing.
import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';

const SERVICE = 'com.norra.UserInteractionsCollectorService';
const LISTENER = {path: '/com/norra/Compositor', interface: 'com.norra.Compositor'};
const PATH = '/com/norra/GnomeShell';
const INTERFACE = `
<node>
  <interface name="com.norra.GnomeShell">
    <method name="Follow"/>
    <method name="Leave"/>
    <property name="Version" type="u" access="read"/>
    <signal name="Enabled"><arg type="b"/></signal>
  </interface>
</node>`;

// Codes of linux/input-event-codes.h. The shell has the masks of the right and the middle button the other way round.
const BUTTONS = [
    [Clutter.ModifierType.BUTTON1_MASK, 0x110],
    [Clutter.ModifierType.BUTTON2_MASK, 0x111],
    [Clutter.ModifierType.BUTTON3_MASK, 0x112],
    [Clutter.ModifierType.BUTTON4_MASK, 0x113],
    [Clutter.ModifierType.BUTTON5_MASK, 0x114],
];
const ANY_BUTTON = BUTTONS.reduce((mask, [bit]) => mask | bit, 0);

// A click of a quick hand takes 30. No event tells the shell of buttons over windows of clients.
const MILLISECONDS_BETWEEN_LOOKS = 5;
const MILLISECONDS_OF_LOOKING_AFTER_INPUT = 300;

function ask(method, type, ...values) {
    return new Promise((resolve, reject) => Gio.DBus.session.call('org.freedesktop.DBus', '/org/freedesktop/DBus',
        'org.freedesktop.DBus', method, new GLib.Variant(type, values), null, Gio.DBusCallFlags.NONE, 1000, null,
        (bus, result) => {
            try {
                resolve(bus.call_finish(result).deepUnpack()[0]);
            } catch (error) {
                reject(error);
            }
        }));
}

// The service has several connections to the bus, and one of them has its name.
async function isOfService(sender) {
    try {
        const processes = await Promise.all(
            [sender, SERVICE].map(name => ask('GetConnectionUnixProcessID', '(s)', name)));
        return processes[0] === processes[1];
    } catch {
        return false;
    }
}

function applicationOf(window) {
    const id = Shell.WindowTracker.get_default().get_window_app(window)?.get_id() ?? '';
    if (id && !id.startsWith('window:'))
        return id.replace(/\.desktop$/, '');
    return window.get_gtk_application_id() ?? window.get_wm_class() ?? '';
}

const POP_UPS = [Meta.WindowType.DROPDOWN_MENU, Meta.WindowType.POPUP_MENU, Meta.WindowType.TOOLTIP,
    Meta.WindowType.COMBO, Meta.WindowType.DND, Meta.WindowType.OVERRIDE_OTHER];

function box({x, y, width, height}) {
    return [x, y, width, height];
}

function described(window) {
    return window && {
        id: `${window.get_id()}`,
        process: window.get_pid(),
        title: window.get_title() ?? '',
        application: applicationOf(window),
        isOfX11: window.get_client_type() === Meta.WindowClientType.X11,
        isPopUp: POP_UPS.includes(window.get_window_type()),
        frame: box(window.get_frame_rect()),
        buffer: box(window.get_buffer_rect()),
    };
}

// What belongs to the shell itself, as its panel, may lie above all windows.
function windowAt(x, y) {
    let actor = global.stage.get_actor_at_pos(Clutter.PickMode.REACTIVE, x, y);
    while (actor && !(actor instanceof Meta.WindowActor))
        actor = actor.get_parent();
    return actor?.meta_window ?? null;
}

class Teller {
    constructor(listener) {
        this._listener = listener;
        this._idle = global.backend.get_core_idle_monitor();
        this._told = '';
        this._buttons = 0;
        this._pointed = {};
        this._window = null;
        this._focus = global.display.connect('notify::focus-window', () => this._followWindow());
        this._vanishing = Gio.DBus.session.watch_name(listener, Gio.BusNameWatcherFlags.NONE, null,
            () => this.ended?.());
        this._followWindow();
        this._waitForInput();
    }

    end() {
        Gio.DBus.session.unwatch_name(this._vanishing);
        global.display.disconnect(this._focus);
        this._window?.disconnect(this._title);
        if (this._watch)
            this._idle.remove_watch(this._watch);
        if (this._looking)
            GLib.source_remove(this._looking);
    }

    _followWindow() {
        this._window?.disconnect(this._title);
        this._window = global.display.focus_window;
        this._title = this._window?.connect('notify::title', () => this._tell());
        this._tell();
    }

    // Called once, with the next input, whatever that is.
    _waitForInput() {
        this._watch = this._idle.add_user_active_watch(() => {
            this._watch = 0;
            if (this._look() === GLib.SOURCE_CONTINUE) {
                this._looking = GLib.timeout_add(GLib.PRIORITY_HIGH, MILLISECONDS_BETWEEN_LOOKS, () => this._look());
            }
        });
    }

    _look() {
        const [x, y, modifiers] = global.get_pointer();
        const buttons = modifiers & ANY_BUTTON;
        if (buttons !== this._buttons) {
            this._buttons = buttons;
            this._pointed = {pointer: [x, y], pointed: described(windowAt(x, y))};
            this._tell();
        }
        if (buttons || this._idle.get_idletime() < MILLISECONDS_OF_LOOKING_AFTER_INPUT)
            return GLib.SOURCE_CONTINUE;
        this._looking = 0;
        this._waitForInput();
        return GLib.SOURCE_REMOVE;
    }

    _tell() {
        const text = JSON.stringify({
            active: described(this._window),
            buttons: BUTTONS.filter(([bit]) => this._buttons & bit).map(([, code]) => code),
            ...this._pointed,
        });
        if (text === this._told)
            return;
        this._told = text;
        Gio.DBus.session.call(this._listener, LISTENER.path, LISTENER.interface, 'Tell',
            new GLib.Variant('(s)', [text]), null, Gio.DBusCallFlags.NO_AUTO_START, 1000, null, null);
    }
}

export default class CollectorExtension extends Extension {
    enable() {
        this._object = Gio.DBusExportedObject.wrapJSObject(INTERFACE, this);
        this._object.export(Gio.DBus.session, PATH);
        this._object.emit_signal('Enabled', new GLib.Variant('(b)', [true]));
    }

    disable() {
        this._end();
        this._object.emit_signal('Enabled', new GLib.Variant('(b)', [false]));
        this._object.flush();
        this._object.unexport();
        this._object = null;
    }

    get Version() {
        return 1;
    }

    async FollowAsync(_parameters, invocation) {
        const sender = invocation.get_sender();
        if (!await isOfService(sender) || !this._object) {
            invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied', `Only ${SERVICE} is told`);
            return;
        }
        this._end();
        invocation.return_value(null);
        this._listener = sender;
        this._teller = new Teller(sender);
        this._teller.ended = () => this._end();
    }

    LeaveAsync(_parameters, invocation) {
        if (invocation.get_sender() === this._listener)
            this._end();
        invocation.return_value(null);
    }

    _end() {
        this._teller?.end();
        this._teller = null;
        this._listener = null;
    }
}
