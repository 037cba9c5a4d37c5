import { Mirror, type Observer, noObserver } from './mirror'
import type { ClientEvent, Message, Value } from './protocol'
import { Transport, type Clock, type LinkState, type TransportParts } from './transport'

/** Typed text goes out at most this long after a key. */
export const TYPING_DELAY = 80
/** Work that takes longer is shown. */
export const BUSY_DELAY = 300
/** After this long a person may cancel it. */
export const SLOW_DELAY = 3000

interface Typed {
  window: number
  name: string
  value: Value
  /** The event that carried it; 0 while it waits to be sent. */
  number: number
}

export interface SessionStatus {
  link: LinkState
  /** An event has been waiting for its acknowledgement for a while. */
  busy: boolean
  /** It has been waiting for so long that a person may want to cancel. */
  slow: boolean
}

export interface SessionParts extends TransportParts {
  observer?: Observer
}

/**
 * A login's consoles, as a client sees and drives them. What a person types is shown at once, goes out shortly
 * after, always before any other event, and again after a reconnection when it was not acknowledged: nothing
 * typed is lost.
 */
export class Session {
  readonly mirror: Mirror
  readonly status: SessionStatus
  onFault: (text: string) => void = () => undefined
  private readonly transport: Transport
  private readonly clock: Clock
  private readonly typed = new Map<string, Typed>()
  private cancelFlush: (() => void) | undefined
  private cancelBusy: (() => void) | undefined
  private cancelSlow: (() => void) | undefined
  private acknowledged = 0

  constructor(parts: SessionParts) {
    const observer = parts.observer ?? noObserver
    this.mirror = new Mirror(observer)
    this.mirror.isTyping = (window, name) => this.typed.has(keyOf(window, name))
    this.clock = parts.clock
    this.transport = new Transport(parts)
    this.status = observer.object({ link: this.transport.state, busy: false, slow: false })
    this.transport.onState = state => this.linkChanged(state)
    this.transport.onMessage = message => this.receive(message)
  }

  connect(): void {
    this.transport.connect()
  }

  /** Ends the connection and forgets all windows. */
  disconnect(): void {
    this.transport.stop()
    this.typed.clear()
    this.mirror.clear()
  }

  /** True when the session has taken in all that was sent. */
  get settled(): boolean {
    return this.acknowledged >= this.transport.sent
  }

  send(event: ClientEvent): void {
    this.flushTyped()
    this.transmit(event)
  }

  act(window: number, name: string): void {
    this.send({ do: 'act', window, name })
  }

  /** Ends the statement that the session is running. */
  cancel(): void {
    this.transmit({ do: 'cancel' })
  }

  /** A choice, a check, a page: shown and sent at once. */
  choose(window: number, name: string, value: Value): void {
    this.show(window, name, value)
    this.send({ do: 'set', window, name, value })
  }

  /** Text as it is being typed. */
  type(window: number, name: string, value: Value): void {
    this.show(window, name, value)
    this.typed.set(keyOf(window, name), { window, name, value, number: 0 })
    this.cancelFlush ??= this.clock.after(TYPING_DELAY, () => this.flushTyped())
  }

  /** Tells the session that the rows [first, last) are looked at, unless it knows. On the line, `last` is the last row. */
  view(window: number, name: string, first: number, last: number): void {
    const rows = this.mirror.find(window, name)?.rows
    if (!rows || (rows.first === first && rows.last === last)) return
    rows.look(first, last)
    this.transmit({ do: 'view', window, name, first, last: last - 1 })
  }

  private show(window: number, name: string, value: Value): void {
    const state = this.mirror.find(window, name)
    if (state) state.value = value
  }

  private flushTyped(): void {
    this.cancelFlush?.()
    this.cancelFlush = undefined
    for (const typed of this.typed.values())
      if (typed.number === 0) typed.number = this.transmit({ do: 'set', window: typed.window, name: typed.name, value: typed.value })
  }

  private transmit(event: ClientEvent): number {
    const number = this.transport.send(event)
    if (number > 0 && !this.cancelBusy) {
      this.cancelBusy = this.clock.after(BUSY_DELAY, () => { this.status.busy = !this.settled })
      this.cancelSlow = this.clock.after(SLOW_DELAY, () => { this.status.slow = !this.settled })
    }
    return number
  }

  private receive(message: Message): void {
    if (message.error !== undefined) {
      this.acknowledge(message.n ?? 0)
      this.onFault(message.error)
    }
    if (!message.changes) return
    if (message.snapshot) this.mirror.clear()
    this.acknowledge(message.ack ?? 0)
    this.mirror.apply(message.changes)
    if (message.snapshot) this.sendAgain()
  }

  private acknowledge(number: number): void {
    this.acknowledged = Math.max(this.acknowledged, number)
    for (const [key, typed] of this.typed) if (typed.number > 0 && typed.number <= number) this.typed.delete(key)
    if (this.settled) this.rest()
  }

  private rest(): void {
    this.cancelBusy?.()
    this.cancelSlow?.()
    this.cancelBusy = this.cancelSlow = undefined
    this.status.busy = this.status.slow = false
  }

  /** After a snapshot: what was typed and not acknowledged is still what the person wants. */
  private sendAgain(): void {
    for (const [key, typed] of this.typed) {
      if (typed.number > 0) continue
      if (this.mirror.find(typed.window, typed.name)) this.show(typed.window, typed.name, typed.value)
      else this.typed.delete(key)
    }
    this.flushTyped()
  }

  private linkChanged(state: LinkState): void {
    this.status.link = state
    if (state.is !== 'open') {
      this.rest()
      return
    }
    this.acknowledged = 0
    for (const typed of this.typed.values()) typed.number = 0
  }
}

function keyOf(window: number, name: string): string {
  return `${window}/${name}`
}
