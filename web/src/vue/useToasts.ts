import { reactive } from 'vue'
import type { Session } from '../core/session'
import { t } from './language'

export interface Toast {
  id: number
  text: string
  bad: boolean
}

const SHOWN_FOR = 8000

/** Short notices: a file that was made, an event that the session did not understand. */
export function useToasts(session: Session): Toast[] {
  const toasts = reactive<Toast[]>([])
  let lastId = 0

  function add(text: string, bad: boolean): void {
    const id = ++lastId
    toasts.push({ id, text, bad })
    window.setTimeout(() => {
      const at = toasts.findIndex(toast => toast.id === id)
      if (at >= 0) toasts.splice(at, 1)
    }, SHOWN_FOR)
  }

  session.onFault = text => add(text, true)
  session.mirror.onFile = name => {
    const link = document.createElement('a')
    link.href = `/api/files/${encodeURIComponent(name)}`
    link.download = name
    link.click()
    add(t('fileReady', name), false)
  }
  return toasts
}
