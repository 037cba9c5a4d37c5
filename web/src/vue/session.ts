import { inject, provide, reactive, shallowReactive, type InjectionKey } from 'vue'
import { Api } from '../core/api'
import { ColumnWidths } from '../core/columns'
import type { Observer } from '../core/mirror'
import { RowStore } from '../core/rows'
import { Session } from '../core/session'
import type { Clock, Socket } from '../core/transport'

const observer: Observer = {
  // Rows come by the hundred and are replaced whole: only the store's revision is followed.
  object: value => (value instanceof RowStore ? shallowReactive(value) : reactive(value)) as typeof value,
  map: value => shallowReactive(value),
}

const clock: Clock = {
  after(milliseconds, action) {
    const timer = window.setTimeout(action, milliseconds)
    return () => window.clearTimeout(timer)
  },
}

function openSocket(): Socket {
  const scheme = location.protocol === 'https:' ? 'wss' : 'ws'
  const line = new WebSocket(`${scheme}://${location.host}/api/ws`)
  const socket: Socket = {
    send: text => line.send(text),
    close: () => line.close(),
    onopen: null,
    onmessage: null,
    onclose: null,
  }
  line.onopen = () => socket.onopen?.()
  line.onmessage = event => socket.onmessage?.(String(event.data))
  line.onclose = () => socket.onclose?.()
  return socket
}

export const api = new Api((address, options) => fetch(address, { ...options, credentials: 'same-origin' }))

export const columnWidths = new ColumnWidths(localStorage)

export function makeSession(): Session {
  return new Session({
    observer,
    clock,
    openSocket,
    stillLoggedIn: async () => (await api.session()) !== null,
  })
}

const key: InjectionKey<Session> = Symbol('session')

export function provideSession(session: Session): void {
  provide(key, session)
}

/** The session whose consoles are drawn. */
export function useSession(): Session {
  const session = inject(key)
  if (!session) throw new Error('No session has been provided.')
  return session
}
