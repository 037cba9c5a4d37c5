import type { Message } from '../src/core/protocol'
import { Session } from '../src/core/session'
import type { Clock, Socket } from '../src/core/transport'

/** Time that passes when a test says so. */
export class ManualClock implements Clock {
  private now = 0
  private waiting: { at: number; action: () => void }[] = []

  after(milliseconds: number, action: () => void): () => void {
    const entry = { at: this.now + milliseconds, action }
    this.waiting.push(entry)
    return () => { this.waiting = this.waiting.filter(other => other !== entry) }
  }

  pass(milliseconds: number): void {
    this.now += milliseconds
    for (const entry of this.waiting.filter(due => due.at <= this.now)) {
      this.waiting = this.waiting.filter(other => other !== entry)
      entry.action()
    }
  }
}

export class FakeSocket implements Socket {
  sent: Record<string, unknown>[] = []
  closed = false
  onopen: (() => void) | null = null
  onmessage: ((text: string) => void) | null = null
  onclose: (() => void) | null = null

  send(text: string): void {
    this.sent.push(JSON.parse(text) as Record<string, unknown>)
  }

  close(): void {
    this.closed = true
  }

  say(message: Message): void {
    this.onmessage?.(JSON.stringify(message))
  }
}

export interface Bench {
  session: Session
  clock: ManualClock
  sockets: FakeSocket[]
  socket: () => FakeSocket
  loggedIn: { answer: boolean | Error }
}

export function makeBench(): Bench {
  const clock = new ManualClock()
  const sockets: FakeSocket[] = []
  const loggedIn: Bench['loggedIn'] = { answer: true }
  const session = new Session({
    clock,
    openSocket: () => {
      const socket = new FakeSocket()
      sockets.push(socket)
      return socket
    },
    stillLoggedIn: () => (loggedIn.answer instanceof Error ? Promise.reject(loggedIn.answer) : Promise.resolve(loggedIn.answer)),
  })
  const socket = () => {
    const last = sockets[sockets.length - 1]
    if (!last) throw new Error('No connection was opened.')
    return last
  }
  return { session, clock, sockets, socket, loggedIn }
}

/** A dialog with a name field, as a snapshot. */
export function dialogSnapshot(name = ''): Message {
  return {
    seq: 1,
    ack: 0,
    snapshot: true,
    changes: [
      { open: 3, class: 'TFormDomainEdit', caption: '域管理', modal: true },
      { component: 3, name: 'GroupFields', kind: 'group', role: 'fields' },
      { component: 3, name: 'EditName', kind: 'edit', in: 'GroupFields', caption: '名　　称：', value: name },
      { component: 3, name: 'BitBtnOk', kind: 'action', caption: '确定', default: true },
      { component: 3, name: 'BitBtnCancel', kind: 'action', caption: '取消', cancel: true },
    ],
  }
}

/** Lets what was promised come true. */
export async function settle(): Promise<void> {
  for (let turn = 0; turn < 5; turn++) await Promise.resolve()
}
