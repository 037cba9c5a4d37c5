import type { ByeReason, ClientEvent, Message } from './protocol'

/** A WebSocket, as far as it is used here. */
export interface Socket {
  send(text: string): void
  close(): void
  onopen: (() => void) | null
  onmessage: ((text: string) => void) | null
  onclose: (() => void) | null
}

export interface Clock {
  /** Runs the action once after the delay; the answer cancels it. */
  after(milliseconds: number, action: () => void): () => void
}

export type LinkState =
  | { is: 'off' }
  | { is: 'connecting' }
  | { is: 'open' }
  /** Waiting for the next try. */
  | { is: 'lost'; retryIn: number }
  | { is: 'ended'; reason: ByeReason }
  /** The login is gone: nothing to come back to. */
  | { is: 'refused' }

export interface TransportParts {
  openSocket: () => Socket
  /** Whether the login still stands; throws when the server cannot be reached. */
  stillLoggedIn: () => Promise<boolean>
  clock: Clock
}

const RETRY_DELAYS = [300, 1000, 2000, 4000, 8000, 15000]

/**
 * The line to the session: numbers the events, and comes back by itself when the connection is lost. Numbering
 * starts anew with each connection, as the session's does.
 */
export class Transport {
  state: LinkState = { is: 'off' }
  onState: (state: LinkState) => void = () => undefined
  onMessage: (message: Message) => void = () => undefined
  private socket: Socket | undefined
  private lastNumber = 0
  private failures = 0
  private cancelRetry: () => void = () => undefined

  constructor(private readonly parts: TransportParts) {}

  get sent(): number {
    return this.lastNumber
  }

  connect(): void {
    this.drop()
    this.change({ is: 'connecting' })
    const socket = this.parts.openSocket()
    this.socket = socket
    socket.onopen = () => {
      this.lastNumber = 0
      this.change({ is: 'open' })
    }
    socket.onmessage = text => this.receive(text)
    socket.onclose = () => void this.lost()
  }

  /** Ends the connection for good. */
  stop(): void {
    this.drop()
    this.change({ is: 'off' })
  }

  /** The number under which the event went out; 0 when there is no connection and it did not. */
  send(event: ClientEvent): number {
    if (this.state.is !== 'open' || !this.socket) return 0
    this.lastNumber++
    this.socket.send(JSON.stringify({ n: this.lastNumber, ...event }))
    return this.lastNumber
  }

  private receive(text: string): void {
    const message = JSON.parse(text) as Message
    this.failures = 0
    this.onMessage(message)
    const reason = message.bye ?? message.changes?.flatMap(change => ('bye' in change ? [change.bye] : []))[0]
    if (reason === undefined) return
    this.drop()
    this.change({ is: 'ended', reason })
  }

  private async lost(): Promise<void> {
    this.drop()
    const delay = RETRY_DELAYS[Math.min(this.failures, RETRY_DELAYS.length - 1)] ?? 0
    this.failures++
    this.change({ is: 'lost', retryIn: delay })
    this.cancelRetry = this.parts.clock.after(delay, () => void this.retry())
  }

  private async retry(): Promise<void> {
    const wasLost = this.state
    const loggedIn = await this.parts.stillLoggedIn().catch(() => undefined)
    if (this.state !== wasLost) return
    if (loggedIn === true) this.connect()
    else if (loggedIn === false) this.change({ is: 'refused' })
    else void this.lost()
  }

  private drop(): void {
    this.cancelRetry()
    const socket = this.socket
    this.socket = undefined
    if (!socket) return
    socket.onopen = socket.onmessage = socket.onclose = null
    socket.close()
  }

  private change(state: LinkState): void {
    this.state = state
    this.onState(state)
  }
}
